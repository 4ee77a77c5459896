#!/usr/bin/env bash
# Installs what is needed, builds everything and runs all tests.
#   ./test.sh             the release build, then its tests
#   ./test.sh sanitize    the same with the address and undefined-behaviour sanitizers
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh

preset=${1:-release}
install_packages "${build_packages[@]}" "${test_packages[@]}"
build "$preset" all
if [ "$preset" = release ]; then
  say "Checking the layout of the code"
  git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
fi
say "Running the tests"
ctest --test-dir "build/$preset" --output-on-failure --no-tests=error -j "$(nproc)"
