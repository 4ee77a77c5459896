#!/usr/bin/env bash
# Installs what is needed, builds the program and opens it.
#   ./run.sh                   the program
#   ./run.sh MINE.abk          the program with this mine
#   ./run.sh MINE.abk STEP...  the calculations without windows; see branok-batch --help
# Without a display it says so and solves the mine, or a demo mine.
set -euo pipefail
start=$PWD
cd "$(dirname "$0")"
source scripts/common.sh

install_packages "${build_packages[@]}"
build release branok-batch
batch=$PWD/build/release/src/batch/branok-batch
program=$PWD/build/release/src/ui/branok
demo=$PWD/data/DATA/mine-a.abk
if [ $# -gt 1 ] || [[ ${1:-} == --* ]]; then
  cd "$start"  # files are named from where the user stands
  exec "$batch" "$@"
fi

without_display() {
  say "There is no display to open a window on: solving ${1:-demo mine A} instead"
  "$batch" "${1:-$demo}" --flow --annual --season 7 --table
  say "Any mine: ./run.sh MINE.abk --flow --annual --season 7 --table"
}

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  cd "$start"
  without_display "$@"
  exit
fi
build release branok
cd "$start"
code=0
"$program" "$@" || code=$?
no_display=3
[ $code -eq $no_display ] || exit $code
without_display "$@"
