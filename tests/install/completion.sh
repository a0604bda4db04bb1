#!/usr/bin/env bash
# completion.sh PREFIX BACKUP: what Tab offers behind the programs installed under a prefix; with a
# backup in the library. Needs the package bash-completion.
set -uo pipefail
prefix=$1 backup=$(realpath "$2")
export LC_ALL=C.UTF-8 PATH=$prefix/bin:$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME=$folder/config XDG_STATE_HOME=$folder/state XDG_DATA_HOME=$folder/data

set +u  # the library of completions does not do with it
. /usr/share/bash-completion/bash_completion
for program in orvane-cli orvane-radio; do
  . "$prefix/share/bash-completion/completions/$program" || exit 1
done

mkdir -p "$folder/here/folder" "$XDG_CONFIG_HOME/Orvane/ports"
cd "$folder/here" || exit 1
touch 'my boat.dat' radio.hex kept.orvsnap notes.txt table.csv
ln -s /dev/null "$XDG_CONFIG_HOME/Orvane/ports/notes"

# offered LINE: what Tab would put behind the line, sorted; the words as the shell splits them.
offered() {
  local line=$1
  COMP_LINE=$line COMP_POINT=${#line} COMP_WORDS=() COMPREPLY=() COMP_TYPE=9 COMP_KEY=9
  local word breaks=${COMP_WORDBREAKS//[!=:@]/}
  for word in $(sed -E "s/([$breaks]+)/ \\1 /g" <<<"$line"); do COMP_WORDS+=("$word"); done
  [[ $line == *' ' ]] && COMP_WORDS+=('')
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  local completer=""
  completer=$(complete -p "${COMP_WORDS[0]}" | sed -E 's/.*-F //;s/ .*//')
  "$completer" "${COMP_WORDS[0]}" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}" 2>/dev/null
  printf '%s\n' "${COMPREPLY[@]}" | sed 's/ *$//' | sort | tr '\n' '|'
}

failures=0
rows=0
expect() {
  local line=$1 wanted=$2 got
  got=$(offered "$line")
  rows=$((rows + 1))
  if [[ $got != "$wanted" ]]; then
    echo "Behind \"$line\" Tab offers $got and not $wanted"
    failures=$((failures + 1))
  fi
}

expect 'orvane-cli re' 'read|report|'
expect 'orvane-cli --' '--debug|--help|--yes|'
expect 'orvane-cli --yes pro' 'program|'
expect 'orvane-cli program --ve' '--verify|'
expect 'orvane-cli read --' '--base|--debug|--help|--model|--output|--port|--raw|--yes|'
expect 'orvane-cli read --model ' '0|1|2|3|4|5|6|'
expect 'orvane-cli report ' 'folder|kept.orvsnap|my boat.dat|radio.hex|'
expect 'orvane-cli map ' 'folder|kept.orvsnap|radio.hex|'
expect 'orvane-cli report radio.hex ' '|'
expect 'orvane-cli program --port COM16 --verify ' 'folder|kept.orvsnap|my boat.dat|radio.hex|'
expect 'orvane-cli convert radio.hex n' 'notes.txt|'
expect 'orvane-cli new -o t' 'table.csv|'
expect 'orvane-cli backups ' 'list|restore|show|'
expect 'orvane-cli export kept.orvsnap --table us' 'usa|usable_groups|'
expect 'orvane-cli import --table usa radio.hex ' 'folder|table.csv|'
expect 'orvane-cli diff radio.hex ' 'folder|kept.orvsnap|my boat.dat|radio.hex|'
expect 'orvane-cli diff radio.hex kept.orvsnap ' '|'
expect 'orvane-cli ports ' '|'
expect 'orvane-radio --fault ref' 'refusal@|'
expect 'orvane-radio --fault refusal@w' 'refusal@write|'
expect 'orvane-radio --fault refusal@write --fault unp' 'unplug@|'
expect 'orvane-radio --model ' '0|1|2|3|4|5|6|'
expect 'orvane-radio --port 1' '1|10|11|12|13|14|15|16|'
expect 'orvane-radio --fa' '--fault|--faults|'
expect 'orvane-radio --log n' 'notes.txt|'
expect 'orvane-radio ' 'folder|radio.hex|'

# A port that is there, and a backup's ID.
orvane-radio --baud 0 --port 9 --quiet >radio.txt &
radio=$!
for ((i = 0; i < 200; i++)); do grep -q COM9 radio.txt && break; read -rt 0.05 <> <(:); done
expect 'orvane-cli doctor --port com9' 'COM9|'
kill $radio
wait $radio
mkdir -p "$XDG_DATA_HOME/Orvane/backups"
cp "$backup" "$XDG_DATA_HOME/Orvane/backups"
id=$(sed -n 's/^checksum: //p' "$backup")
expect "orvane-cli backups show ${id:0:4}" "$id|"

((failures == 0)) || exit 1
echo "$rows lines are completed as they should be"
