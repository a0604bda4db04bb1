# shellcheck shell=bash disable=SC2034
# The Debian packages the project needs, and how to install those that are missing.
# Sourced by ./run and ./test.

build_packages="g++ make cmake ninja-build ccache git ca-certificates
  qt6-base-dev qt6-serialport-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-documentation-tools libqt6sql6-sqlite libgl-dev
  libcli11-dev nlohmann-json3-dev libgtest-dev libbenchmark-dev
  fonts-dejavu-core"
check_packages="clang clang-format clang-tidy libclang-rt-14-dev
  g++-mingw-w64-x86-64-posix googletest wine64"
# To build the Debian package, and to look at what it installs.
deb_packages="debhelper dpkg-dev"
deb_check_packages="lintian mmdebstrap man-db desktop-file-utils appstream shared-mime-info
  bash-completion"

say() { printf '\n== %s\n' "$*"; }

# install_missing PACKAGE...: installs what dpkg does not list as installed.
install_missing() {
  missing=""
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
      missing="$missing $package"
  done
  [ -z "$missing" ] && return 0
  say "Installing:$missing"
  root=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing and this user may not install them:$missing" >&2
      echo "Run this script once as root, or install them with: apt-get install$missing" >&2
      return 1
    }
    root=sudo
  fi
  # A machine that has just been started may still be installing something of its own.
  $root apt-get -o DPkg::Lock::Timeout=300 update -q
  # shellcheck disable=SC2086
  $root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 install -y -q \
    --no-install-recommends $missing
}

# build_preset NAME [TARGET...]: configures and builds a preset of CMakePresets.json.
build_preset() {
  preset=$1
  shift
  say "Building preset $preset"
  cmake --preset "$preset" >"build/$preset-configure.log" 2>&1 || {
    cat "build/$preset-configure.log" >&2
    return 1
  }
  if [ $# -gt 0 ]; then cmake --build --preset "$preset" --target "$@"; else cmake --build --preset "$preset"; fi
}
