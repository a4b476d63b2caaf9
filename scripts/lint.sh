#!/usr/bin/env bash
# Static analysis of our own code and scripts: formatting, bugs and names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

for tool in clang-format shellcheck cppcheck clang-tidy run-clang-tidy; do
  command -v "$tool" >/dev/null || { echo "lint.sh: $tool is missing (scripts/packages.sh tools)" >&2; exit 1; }
done

mapfile -t code < <(find app store ui net content base sandbox tests bench fuzz -name '*.cpp' -o -name '*.h')
clang-format --dry-run -Werror "${code[@]}"

scripts/check-includes.sh

shellcheck --external-sources ./*.sh .ci/run scripts/*.sh tests/*.sh

cppcheck --std=c++17 --language=c++ --enable=warning,performance,portability --inline-suppr --quiet \
  --suppress=missingInclude --error-exitcode=1 -j "$(nproc)" -I . app store ui net content base sandbox bench fuzz

# The analysis spends nine tenths of its time on the framework's headers, so files are read several at a time, each lot
# as one. The count of warnings in those headers, which are not ours, goes to stderr.
cmake --preset lint >/dev/null
cmake --build --preset lint >/dev/null    # the header of the compiled-in pictures
run-clang-tidy -quiet -p build/lint -j "$(nproc)" '^(?!.*(/framework|/assets[.]dir/))' 2>/dev/null |
  grep -v '^clang-tidy' || exit_code=${PIPESTATUS[0]}
exit "${exit_code:-0}"
