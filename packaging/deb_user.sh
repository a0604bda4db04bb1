#!/usr/bin/env bash
# deb_user.sh files NAME|radio: what an ordinary user does with the installed programs, at home.
#   files  makes a settings file of that name, prints it, opens it in the window, and looks for what an
#          earlier version left
#   radio  reads a simulated radio and programs it
set -euo pipefail
cd
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR QT_QPA_PLATFORM=offscreen
settings=.config/Orvane/settings.ini

fail() {
  echo "$*" >&2
  exit 1
}

# Fails when the condition does not come true within half a minute.
await() {
  local tries
  for ((tries = 0; tries < 600; ++tries)); do
    if "$@"; then return 0; fi
    read -rt 0.05 <> <(:) || true
  done
  fail "in vain waited for: $*"
}

use_files() {
  local name=$1
  orvane-cli new --model 5 -o new.dat
  orvane-cli set new.dat usa/16/name=HAILING -o "$name.dat"
  orvane-cli convert "$name.dat" "$name.pdf"  # needs a font of one width
  [ "$(head -c 5 "$name.pdf")" = "%PDF-" ] || fail "$name.pdf is no PDF"
  orvane-cli backups list | grep 5203747B || fail "the earlier version's backup is not listed"

  ! grep -q "$name\.dat" "$settings" || fail "$name.dat was opened before"
  orvane "$name.dat" 2>window.log &
  local window=$! ended=0
  await grep -qs "$name\.dat" "$settings"
  kill "$window"
  wait "$window" || ended=$?
  [ $ended = $((128 + 15)) ] || fail "the window ended by itself, with status $ended: $(cat window.log)"
  [ ! -s window.log ] || fail "the window complained: $(cat window.log)"
  grep -q 'with, comma\.dat' "$settings" || fail "the earlier version's list of files is lost"
}

use_radio() {
  coproc RADIO { exec orvane-radio --model 5 --port 16 --baud 0 --log radio.log; }
  radio=$RADIO_PID
  trap 'kill "$radio" 2>/dev/null || true' EXIT
  read -r ready <&"${RADIO[0]}" || fail "the simulated radio did not start"
  echo "$ready"
  orvane-cli doctor --port COM16
  orvane-cli read --model 5 --port COM16 -o boat.hex
  orvane-cli set boat.hex usa/16/name=MARINA -o changed.hex
  orvane-cli program --port COM16 changed.hex
  orvane-cli read --model 5 --port COM16 -o after.hex
  [ "$(orvane-cli get boat.hex usa/16/name)" != MARINA ] || fail "the radio had the name already"
  orvane-cli get after.hex usa/16/name | grep -x MARINA
}

"use_$@"
