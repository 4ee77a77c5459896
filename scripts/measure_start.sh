#!/usr/bin/env bash
# Milliseconds from the start of the process to the window on the screen, ten times.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

if [ "${1:-}" != measure ]; then
  install_packages "${build_packages[@]}" "${test_packages[@]}" xdotool
  build release branok
  exec xvfb-run -a -s "-screen 0 1400x1000x24" scripts/measure_start.sh measure
fi
for _ in 1 2 3 4 5 6 7 8 9 10; do
  begin=$(date +%s%N)
  build/release/src/ui/branok 2>/dev/null &
  until xdotool search --onlyvisible --name 'Mine Ventilation Analysis' >/dev/null 2>&1; do :; done
  end=$(date +%s%N)
  kill $!
  wait $! 2>/dev/null || true
  echo "$(((end - begin) / 1000000)) ms"
done
