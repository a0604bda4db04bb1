#!/usr/bin/env bash
# deb_test.sh: the Debian package from its building to its removal. Built twice, in two folders, with
# equal bytes; looked at by the distribution's checkers; then installed, used, upgraded, removed and
# purged in a clean system.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh

# shellcheck disable=SC2086
install_missing $build_packages $deb_packages $deb_check_packages
root=""
[ "$(id -u)" -eq 0 ] || root=sudo

fail() {
  echo "$*" >&2
  exit 1
}
# Runs a checker that must have nothing to say.
silent() {
  local said
  said=$("$@" 2>&1) || fail "$1: $said"
  [ -z "$said" ] || fail "$1: $said"
}

mkdir -p build/deb_test
say "Building the package"
packaging/deb.sh build/deb_test/first
package=$(echo build/deb_test/first/orvane_*.deb)

# Meanwhile again: another folder, time zone and mask, and nothing kept from the first time.
(umask 027 && TZ=Asia/Tokyo CCACHE_DISABLE=1 exec packaging/deb.sh build/deb_test/second/deeper) \
  >build/deb_test/again.log 2>&1 &
again=$!
trap 'kill "$again" 2>/dev/null || true' EXIT

say "What the package holds"
lintian --fail-on error,warning --tag-display-limit 0 build/deb_test/first/orvane_*.changes
tree=$PWD/build/deb_test/tree
rm -rf "$tree"
dpkg-deb --extract "$package" "$tree"
share=$tree/usr/share
for program in "$tree"/usr/bin/* "$tree"/usr/lib/*/orvane/*.so; do
  readelf --wide --dynamic --program-headers "$program" >build/deb_test/elf
  for word in BIND_NOW GNU_RELRO 'file type is DYN'; do
    grep -q "$word" build/deb_test/elf || fail "$program is not hardened: no $word"
  done
done
silent desktop-file-validate "$share/applications/orvane.desktop"
appstreamcli validate-tree --no-net "$tree"
for page in "$share"/man/man1/*.1.gz; do
  LC_ALL=C.UTF-8 MANWIDTH=80 silent sh -c "man --warnings --local-file -Tutf8 -Z '$page' >/dev/null"
done
XDG_DATA_DIRS=$share silent update-mime-database "$share/mime"
[ -f "$share/mime/application/x-orvane-snapshot.xml" ] || fail "the file types are not understood"
bash tests/install/completion.sh "$tree/usr" tests/golden/backups_1_0/*.orvsnap

say "The package in a clean system"
older=build/deb_test/older
rm -rf $older
dpkg-deb --raw-extract "$package" $older
sed -i 's/^Version: .*/Version: 0.9/' $older/DEBIAN/control
dpkg-deb --root-owner-group --build $older build/deb_test/orvane_older.deb >/dev/null
$root unshare --mount bash packaging/deb_system.sh "$package" build/deb_test/orvane_older.deb \
  build/deb_test/clean

say "The package built again"
wait "$again" || fail "$(tail -n 60 build/deb_test/again.log)"
cmp "$package" build/deb_test/second/deeper/orvane_*.deb || fail "the two packages differ"
echo "equal: $(sha256sum <"$package" | cut -c 1-64)"
