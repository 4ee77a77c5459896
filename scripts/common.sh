# What run.sh and test.sh share: saying what is done, installing packages, building.

build_packages=(g++ cmake ninja-build libsimpleini-dev qt6-base-dev qt6-svg-dev libqcustomplot-dev libxcb1-dev)
test_packages=(libgtest-dev libbenchmark-dev libeigen3-dev locales clang-format xvfb xauth
  fonts-dejavu-core)

say() { printf '== %s\n' "$*"; }

# Installs the Debian packages that are missing; does nothing when all are there.
install_packages() {
  local missing=()
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET TARGET: configures (once) and builds.
build() {
  say "Building $2 ($1)"
  local options
  # Tests and benchmarks need packages that a plain run does without.
  if [ "$2" = all ]; then
    options=(-DBUILD_TESTING=ON)
  else
    options=(-DBUILD_TESTING=OFF)
  fi
  cmake --preset "$1" "${options[@]}" >/dev/null
  cmake --build --preset "$1" --target "$2" -j "$(nproc)"
}
