#!/usr/bin/env bash
# Installs what is needed, builds the program and opens it.
#   ./run.sh                   the program
#   ./run.sh MINE.abk          the program with this mine
#   ./run.sh MINE.abk STEP...  the calculations without windows; see branok-batch --help
# Without a display it says so and solves a demo mine.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh

install_packages "${build_packages[@]}"
build release branok-batch
batch=build/release/src/batch/branok-batch
if [ $# -gt 1 ] || [[ ${1:-} == --* ]]; then
  exec "$batch" "$@"
fi

without_display() {
  say "There is no display to open a window on: solving demo mine A instead"
  "$batch" data/DATA/mine-a.abk --flow --annual --season 7 --table
  say "Your own mine: ./run.sh MINE.abk --flow --annual --season 7 --table"
}

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  without_display
  exit
fi
build release branok
code=0
build/release/src/ui/branok "$@" || code=$?
no_display=3
[ $code -eq $no_display ] || exit $code
without_display
