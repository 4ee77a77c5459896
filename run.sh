#!/usr/bin/env bash
# Installs what is needed, builds the program and does its main job on a demo mine.
#   ./run.sh              the demo mine
#   ./run.sh MINE STEP... any mine; see branok-batch --help
set -euo pipefail
cd "$(dirname "$0")"
source scripts/common.sh

install_packages "${build_packages[@]}"
build release branok-batch
batch=build/release/src/batch/branok-batch

if [ $# -gt 0 ]; then
  exec "$batch" "$@"
fi
say "Solving demo mine A: flow, annual temperatures, mid Summer"
"$batch" data/DATA/mine-a.abk --flow --annual --season 7 --table
say "Your own mine: ./run.sh MINE.abk --flow --annual --season 7 --table"
