#!/usr/bin/env bash
# deb_system.sh PACKAGE OLDER FOLDER: the life of an installed package. Makes a clean system of the
# distribution in FOLDER, with nothing but what the package says it depends on; installs the older
# package there, lets a user work, upgrades, lets him work again, removes and purges. Then nothing may
# be left but the user's files, and these untouched. A failure leaves FOLDER to be looked at. As root,
# in a mount namespace of its own:
#   unshare --mount packaging/deb_system.sh ...
set -euo pipefail
package=$(realpath "$1") older=$(realpath "$2")
scripts=$(realpath "$(dirname "$0")")
golden=$scripts/../tests/golden
export LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive

fail() {
  echo "$*" >&2
  exit 1
}
run() { chroot "$system" "$@"; }

rm -rf --one-file-system "$3"
mkdir -p "$3"
folder=$(realpath "$3")
system=$folder/system

# From where this machine takes its own packages.
sources=$(apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
  'Created-By: Packages' 'Origin: Debian' | sort -u)
depends=$(dpkg-deb --field "$package" Depends)
# shellcheck disable=SC2016
mmdebstrap --mode=root --variant=apt --include=shared-mime-info --customize-hook="
    chroot \"\$1\" apt-get satisfy -q --yes --no-install-recommends '$depends'
  " "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$system" - \
  <<<"$sources" >"$folder/system.log" 2>&1 || {
  tail -n 40 "$folder/system.log" >&2
  exit 1
}
mount --bind /proc "$system/proc"
mount -t tmpfs none "$system/dev/shm"
mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 none "$system/dev/pts"
ln -sf pts/ptmx "$system/dev/ptmx"
cp "$scripts/deb_user.sh" "$system/usr/local/bin"
cp "$package" "$system/new.deb"
cp "$older" "$system/older.deb"

# What lies in the system, but for what its package tools note of their own work.
contents() {
  cd "$system"
  local others=(./home ./proc ./dev ./tmp ./var/cache ./var/log ./var/lib/apt ./var/lib/dpkg)
  local prune=() folder
  for folder in "${others[@]}"; do prune+=(-path "$folder" -prune -o); done
  find . -xdev "${prune[@]}" -printf '%p %y %m %u %g %l\n' | sort
  find . -xdev "${prune[@]}" -type f -print0 | sort -z | xargs -0 sha256sum
}
users_files() { (cd "$system/home" && find . -type f -exec sha256sum {} + | sort -k 2); }
expect_users_files_untouched() {
  diff <(echo "$users_had") <(users_files) || fail "$1 changed the user's files"
}

run useradd --create-home --groups dialout sailor
mkdir -p "$system/home/sailor/.config/Orvane" "$system/home/sailor/.local/share/Orvane/backups"
sed 's/^ModelNum=.*/ModelNum=5/' "$golden/settings_1_0.ini" \
  >"$system/home/sailor/.config/Orvane/settings.ini"
cp "$golden"/backups_1_0/* "$system/home/sailor/.local/share/Orvane/backups"
run chown -R sailor: /home/sailor
as_user() { run su --login sailor --command "deb_user.sh $*"; }
before=$(contents)

say() { printf -- '-- %s\n' "$*"; }
# packages COMMAND WORD...: the system's package tool, which has nothing to ask and nothing to fetch.
packages() {
  run apt-get -q --yes --no-install-recommends "$@" >"$folder/packages.log" 2>&1 ||
    fail "apt-get $*: $(tail -n 20 "$folder/packages.log")"
}

say "Installed: $(dpkg-deb --field "$older" Version)"
packages install /older.deb
[ -f "$system/usr/share/mime/application/x-orvane-settings.xml" ] ||
  fail "the system does not know the settings file's type"
as_user files older
users_had=$(users_files)

say "Upgraded: $(dpkg-deb --field "$package" Version)"
packages install /new.deb
[ "$(run dpkg-query --show --showformat '${Version}' orvane)" = \
  "$(dpkg-deb --field "$package" Version)" ] || fail "the new version is not installed"
expect_users_files_untouched "upgrading"
as_user files newer
as_user radio
users_had=$(users_files)

say "Removed"
packages remove orvane
expect_users_files_untouched "removing"
diff <(echo "$before") <(contents) || fail "removing left something over"

say "Installed again and purged"
packages install /new.deb
packages purge orvane
expect_users_files_untouched "purging"
diff <(echo "$before") <(contents) || fail "purging left something over"
! run dpkg-query --status orvane >/dev/null 2>&1 || fail "the system still knows the package"
[ -z "$(find "$system/var/lib/dpkg" "$system/var/cache" -iname '*orvane*')" ] ||
  fail "the package tools keep something of the package"
say "Nothing is left over, and the user's $(wc -l <<<"$users_had") files are as they were"

umount "$system/proc" "$system/dev/shm" "$system/dev/pts"
rm -rf --one-file-system "$folder"
