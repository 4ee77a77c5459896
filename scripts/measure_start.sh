#!/usr/bin/env bash
# Milliseconds from the start of the process to the window on the screen, ten times. Needs xdotool.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

install_packages "${build_packages[@]}" "${test_packages[@]}" xdotool
build release branok
measure() {
  for _ in 1 2 3 4 5 6 7 8 9 10; do
    begin=$(date +%s%N)
    build/release/src/ui/branok 2>/dev/null &
    xdotool search --sync --onlyvisible --name 'Mine Ventilation Analysis' >/dev/null
    end=$(date +%s%N)
    kill $! && wait $! 2>/dev/null || true
    echo "$(((end - begin) / 1000000)) ms"
  done
}
export -f measure
xvfb-run -a -s "-screen 0 1400x1000x24" bash -c measure
