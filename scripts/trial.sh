# shellcheck shell=bash
# To be sourced in the checkout's folder: the program on trial. A store runs on this machine for it, and it
# gets an installation and settings of its own below build/, so that nothing of the user's is touched. A
# PLATFORM is linux or windows.
#
#   set_up_trial PLATFORM STORE_OPTIONS...   builds, starts the store, prepares the installation
#   start_client PLATFORM                    sets $client_pid
#   another_store OPTIONS...                 at the same address, in place of the one that runs
#   end_trial                                ends what was started, and nothing else; fit for an EXIT trap

product="Klangora 4"
installation=$PWD/build/installation
settings=$PWD/build/settings
store_log=$PWD/build/store.log    # a line for every request
store_address=
store_pid=
client_pid=

set_up_trial ()
{
  local platform=$1
  shift

  if [[ $platform == windows ]]; then
    scripts/windows-libs.sh build
    scripts/wine-prefix.sh
  fi

  cmake --preset linux >/dev/null
  cmake --build --preset linux --target sandboxStore
  rm -f "$store_log"
  _start_store "$@"

  # Only one source file knows the store's address, so another one costs a moment.
  cmake --preset "$platform" "-DSTORE_URL=$store_address" >/dev/null
  cmake --build --preset "$platform" --target DorvikRigmart
  _prepare_installation "$platform"
}

# On any free port, or on that of the store before.
_start_store ()
{
  local output port=${store_address##*:}
  exec {output}< <(exec setpriv --pdeathsig TERM build/linux/bin/sandboxStore --log "$store_log" \
    ${port:+--port "$port"} "$@")
  store_pid=$!

  if ! read -r -t 30 -u "$output" store_address; then
    echo "The store did not start." >&2
    return 1
  fi
}

another_store ()
{
  kill "$store_pid"
  wait "$store_pid" || true
  _start_store "$@"
}

_prepare_installation ()
{
  rm -rf "$installation" "$settings"
  mkdir -p "$settings/Dorvik Electronics"
  build/linux/bin/sandboxStore --install "$installation" --skin assets/images/generic_background.jpg

  if [[ $1 == windows ]]; then
    local folder
    folder=$(scripts/wine-run.sh winepath -w "$installation")
    scripts/wine-run.sh reg add "HKLM\\SOFTWARE\\Dorvik Electronics\\$product" \
      /v InstallationDir /d "${folder%$'\r'}" /f >/dev/null
  else
    _settings_file "$installation" >"$settings/Dorvik Electronics/registry.settings"
  fi
}

# As the framework writes its settings files.
_settings_file ()
{
  local folder=${1//&/\&amp;}
  folder=${folder//</\&lt;}
  folder=${folder//\"/\&quot;}
  cat <<XML
<?xml version="1.0" encoding="UTF-8"?>

<PROPERTIES>
  <VALUE name="HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\$product\\InstallationDir" val="$folder"/>
</PROPERTIES>
XML
}

start_client ()
{
  local command=(setpriv --pdeathsig TERM build/linux/bin/DorvikRigmart)

  if [[ $1 == windows ]]; then
    command=(scripts/wine-run.sh build/windows/bin/DorvikRigmart.exe)
  else
    _wait_for_other_copy
  fi

  XDG_CONFIG_HOME=$settings no_proxy=127.0.0.1 NO_PROXY=127.0.0.1 "${command[@]}" </dev/null &
  client_pid=$!
}

# Every user may run one copy of the program: prints the process that holds the lock. (Under Wine the
# user is the prefix, which no other checkout uses.)
_running_copy ()
{
  lslocks --noheadings --raw --output PID,PATH | sed -n 's/ .*juceAppLock_Dorvik.*//p' | grep .
}

_wait_for_other_copy ()
{
  local pid announced="" deadline=$((SECONDS + 300))

  while pid=$(_running_copy); do
    if ((SECONDS >= deadline)); then
      echo "It still runs. Please end it first." >&2
      return 1
    fi
    [[ $pid == "$announced" ]] || echo "Waiting for another copy of the program to end: process $pid"
    announced=$pid
    sleep 0.2
  done
}

end_trial ()
{
  local pid
  for pid in $client_pid $store_pid; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  client_pid=
  store_pid=
}
