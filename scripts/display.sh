# shellcheck shell=bash
# To be sourced: a virtual display with a window manager, for programs that open windows.
#
#   start_display    starts both and exports DISPLAY; $screen_size is 1280x1024 unless it is set, and
#                    $window_manager is openbox, or else i3 or none
#   stop_display     ends exactly these two; harmless when nothing runs, so fit for an EXIT trap

# Succeeds as soon as COMMAND does; fails once process PID has ended or 30 s have passed.
_display_until ()
{
  local pid=$1 deadline=$((SECONDS + 30))
  shift

  until "$@"; do
    if ! kill -0 "$pid" 2>/dev/null || ((SECONDS >= deadline)); then
      return 1
    fi
    sleep 0.05
  done
}

_display_is_managed ()
{
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

_display_failed ()
{
  echo "The virtual display did not start: $1" >&2
  cat "$_display_dir/log" >&2
  stop_display
  return 1
}

start_display ()
{
  local screen=${screen_size:-1280x1024} manager=${window_manager:-openbox} command
  _display_dir=$(mktemp -d)
  _display_pids=()

  # Alt+F4 and click-to-focus are all that a person at this display needs of the window manager.
  cat >"$_display_dir/rc.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <desktops><number>1</number></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
  </keyboard>
  <mouse>
    <context name="Titlebar">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
      <mousebind button="Left" action="Drag"><action name="Move"/></mousebind>
    </context>
    <context name="Client">
      <mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/></mousebind>
    </context>
    <context name="Close">
      <mousebind button="Left" action="Click"><action name="Close"/></mousebind>
    </context>
  </mouse>
</openbox_config>
XML

  # The server picks a free number itself, which lets several displays start at once. It must not reset
  # when its last window closes: atoms would vanish under a running program. The parent-death signal
  # ends both processes even when this shell is killed before its trap can run.
  : >"$_display_dir/number"
  setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 "${screen}x24" -noreset \
    3>"$_display_dir/number" </dev/null &>>"$_display_dir/log" &
  _display_pids=($!)
  _display_until $! grep -q . "$_display_dir/number" || _display_failed "no display" || return 1
  DISPLAY=:$(<"$_display_dir/number")
  export DISPLAY

  case $manager in
    openbox) command=(openbox --sm-disable --config-file "$_display_dir/rc.xml") ;;
    i3) echo 'font pango:monospace 8' >"$_display_dir/i3"; command=(i3 -c "$_display_dir/i3") ;;
    none) command=() ;;
  esac

  if ((${#command[@]} > 0)); then
    XDG_CACHE_HOME=$_display_dir XDG_CONFIG_HOME=$_display_dir XDG_DATA_HOME=$_display_dir \
      setpriv --pdeathsig TERM "${command[@]}" </dev/null &>>"$_display_dir/log" &
    _display_pids=($! "${_display_pids[@]}")
    _display_until $! _display_is_managed || _display_failed "no window manager" || return 1
  fi

  # What is tested on this display talks to servers on this machine only: never through a proxy.
  export no_proxy="localhost,127.0.0.1,::1${no_proxy:+,$no_proxy}"
  export NO_PROXY=$no_proxy
}

stop_display ()
{
  local pid
  for pid in "${_display_pids[@]:-}"; do
    # A pid whose process has ended already is not an error, hence the two "|| true".
    [[ -z $pid ]] || { kill "$pid" 2>/dev/null || true; wait "$pid" 2>/dev/null || true; }
  done
  _display_pids=()

  if [[ -n ${_display_dir:-} ]]; then
    rm -rf "$_display_dir"
    unset _display_dir DISPLAY
  fi
}
