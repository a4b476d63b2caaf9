#!/usr/bin/env bash
# Checks that includes between the product's folders run down, from app to base, and that the core, which is what
# neither shows a page nor lies in ui, store or app, includes nothing of windows. docs/architecture.md names the
# reasons for what may be included from below all the same.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

order=(base ui net content store app)
from_anywhere='^(store/genericlistener|store/showAttention|app/productName|app/programVersion|app/installationPaths)\.h$'
from_ui='^content/jSimpleArchive\.h$'    # the reader that the program-wide state points at
pages='^(net/store_auth|content/store_downloads)\.'
windows='<juce_(events|data_structures|graphics|gui_basics)|"(ui|store|app)/'

level_of ()
{
  local level
  for level in "${!order[@]}"; do
    [[ ${order[level]} != "$1" ]] || echo "$level"
  done
}

found=0
complain ()
{
  echo "$1 includes $2: $3" >&2
  found=1
}

while IFS=: read -r file line; do
  [[ $line =~ [\"\<]([^\"\>]+) ]]
  header=${BASH_REMATCH[1]}
  folder=${file%%/*}
  below=$(level_of "$folder")
  above=$(level_of "${header%%/*}")

  case ${header%%/*} in
    tests | bench | fuzz | sandbox) complain "$file" "$header" "the product knows nothing of those" ;;
  esac

  if [[ -n $above ]] && ((above > below)) && ! [[ $header =~ $from_anywhere ]] &&
    ! [[ $folder == ui && $header =~ $from_ui ]]; then
    complain "$file" "$header" "$folder lies below ${header%%/*}"
  fi

  if [[ $folder == @(base|net|content) ]] && ! [[ $file =~ $pages ]] && [[ $line =~ $windows ]] &&
    ! [[ $header =~ $from_anywhere && $header != app/installationPaths.h ]]; then
    complain "$file" "$header" "the core knows no window"
  fi
done < <(grep -rE '^ *# *include' "${order[@]}")

exit "$found"
