#!/usr/bin/env bash
# deb.sh [FOLDER]: builds orvane_VERSION_ARCH.deb into FOLDER, build/deb if none is named, from a copy
# of the sources made there. No symbols for a debugger are kept: a build with them is
# dpkg-buildpackage in the sources, which also runs the tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh

folder=${1:-build/deb}
# shellcheck disable=SC2086
install_missing $build_packages $deb_packages

rm -rf "$folder"
mkdir -p "$folder/orvane"
git ls-files -z --cached --others --exclude-standard |
  tar --create --null --files-from - | tar --extract --directory "$folder/orvane"
folder=$(realpath "$folder")
cd "$folder/orvane"
DEB_CXXFLAGS_STRIP=-g DEB_BUILD_OPTIONS="nocheck noautodbgsym parallel=$(nproc)" \
  dpkg-buildpackage --build=binary --no-sign >"$folder/build.log" 2>&1 || {
  tail -n 60 "$folder/build.log" >&2
  exit 1
}
ls "$folder"/orvane_*.deb
