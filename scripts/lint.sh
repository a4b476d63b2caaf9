#!/usr/bin/env bash
# Static analysis of our own code and scripts: formatting, bugs and names. Wants build/linux built.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mapfile -t code < <(find app store ui net content base sandbox tests bench fuzz -name '*.cpp' -o -name '*.h')
clang-format --dry-run -Werror "${code[@]}"

scripts/check-includes.sh

shellcheck --external-sources ./*.sh .ci/run scripts/*.sh tests/*.sh

cppcheck --std=c++17 --language=c++ --enable=warning,performance,portability --inline-suppr --quiet \
  --suppress=missingInclude --error-exitcode=1 -j "$(nproc)" -I . app store ui net content base sandbox bench fuzz

# clang does not read the precompiled headers of GCC, and without any it shows what a file forgot to include.
mkdir -p build/lint
sed -E 's/ -(Winvalid-pch|fpch-preprocess)//g; s/ -include [^ ]*cmake_pch[^ ]*//g' build/linux/compile_commands.json \
  >build/lint/compile_commands.json

# Of the program's and the sandbox's sources; headers are checked with whoever includes them. The count of
# warnings in the framework's headers, which are not ours, goes to stderr.
run-clang-tidy -quiet -p build/lint -j "$(nproc)" "$PWD/(app|store|ui|net|content|base|sandbox)/.*\.cpp\$" \
  2>/dev/null | grep -v '^clang-tidy' || exit_code=${PIPESTATUS[0]}
exit "${exit_code:-0}"
