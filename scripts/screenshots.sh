#!/usr/bin/env bash
# Takes a picture of every window and dialog, at 100 % and 200 %, light and dark, into
# build/screenshots.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

install_packages "${build_packages[@]}" "${test_packages[@]}"
say "Building (release)"
cmake --preset release -DBUILD_TESTING=ON >/dev/null
cmake --build --preset release --target screenshots -j "$(nproc)"
for scale in 1 2; do
  for palette in light dark; do
    folder=build/screenshots/$palette-$scale
    say "$folder"
    mkdir -p "$folder"
    QT_SCALE_FACTOR=$scale xvfb-run -a -s "-screen 0 2600x1900x24" \
      build/release/tests/gui/screenshots "$folder" "$palette"
  done
done
