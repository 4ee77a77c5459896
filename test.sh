#!/usr/bin/env bash
# Installs what is needed, builds everything and runs all tests.
#   ./test.sh             the release build, then its tests
#   ./test.sh sanitize    the same with the address and undefined-behaviour sanitizers
#   ./test.sh tidy        the static checks of .clang-tidy, no tests
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh

preset=${1:-release}
if [ "$preset" = tidy ]; then
  install_packages "${build_packages[@]}" "${test_packages[@]}" clang-tidy
  build release all
  say "Checking the code"
  find src tests bench -name '*.cpp' ! -name 'fuzz_*' | xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/release --extra-arg=-Wno-unknown-warning-option
  exit
fi
install_packages "${build_packages[@]}" "${test_packages[@]}"
build "$preset" all
if [ "$preset" = release ]; then
  say "Checking the layout of the code"
  find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
fi
say "Running the tests"
# The display's own libraries leave memory behind at the end of a program.
export LSAN_OPTIONS=suppressions=$PWD/tests/gui/leaks.supp:print_suppressions=0
xvfb-run -a -s "-screen 0 1400x1000x24" \
  ctest --test-dir "build/$preset" --output-on-failure --no-tests=error -j "$(nproc)"
