#!/usr/bin/env bash
# manual_options.sh PAGES ORVANE ORVANE_CLI ORVANE_RADIO: what --help lists stands in the manual
# pages, and nothing else: options, commands with their own options, faults of the simulated radio.
set -euo pipefail
export LC_ALL=C.UTF-8
pages=$1 orvane=$2 cli=$3 radio=$4
failures=0
compared=0

# Options that a help text on standard input lists, one a line.
listed() {
  sed -nE 's/^ {2}((-[a-zA-Z], *)?--[a-z-]+|-[a-zA-Z]|\/[A-Z])( .*)?$/\1/p' | tr -d ' ' | tr ',' '\n'
}

# described PAGE SECTION [SUBSECTION]: the tags of the paragraphs that describe something there, word
# by word, without the names of values.
described() {
  awk -v section="$2" -v subsection="${3:-}" '
    /^\.SH / { gsub(/"/, ""); here = substr($0, 5); sub_here = "" }
    /^\.SS / { gsub(/"/, ""); sub_here = substr($0, 5) }
    tagged && here == section && sub_here == subsection {
      gsub(/\\-/, "-"); gsub(/\\f[A-Z]/, ""); gsub(/"/, ""); sub(/^\.[BIR]+ /, ""); gsub(/,/, " ")
      for (i = 1; i <= split($0, words, / +/); i++) if (words[i] ~ /^[-\/a-z]/) print words[i]
    }
    { tagged = $0 == ".TP" }' "$pages/$1"
}

# expect_equal WHAT PAGE LISTED DESCRIBED
expect_equal() {
  local word listed described
  listed=$(sort -u <<<"$3") described=$(sort -u <<<"$4")
  compared=$((compared + $(wc -w <<<"$listed")))
  for word in $(comm -23 <(echo "$listed") <(echo "$described")); do
    echo "$2 lacks $word, which $1 --help lists. Describe it in packaging/man/$2."
    failures=$((failures + 1))
  done
  for word in $(comm -13 <(echo "$listed") <(echo "$described")); do
    echo "$2 describes $word, which $1 --help does not list."
    failures=$((failures + 1))
  done
}

expect_equal orvane orvane.1 "$("$orvane" --help | listed)" "$(described orvane.1 OPTIONS)"

expect_equal orvane-cli orvane-cli.1 "$("$cli" --help | listed)" "$(described orvane-cli.1 OPTIONS)"
commands=$("$cli" --help | sed -nE '/^(Subcommands|SUBCOMMANDS):/,/^$/s/^ {2}([a-z]+)( .*)?$/\1/p')
expect_equal orvane-cli orvane-cli.1 "$commands" "$(sed -n 's/^\.SS //p' "$pages/orvane-cli.1")"
for command in $commands; do
  expect_equal "orvane-cli $command" orvane-cli.1 \
    "$("$cli" "$command" --help | listed | grep -vxE -e '-h|--help' || true)" \
    "$(described orvane-cli.1 COMMANDS "$command")"
done

expect_equal orvane-radio orvane-radio.1 "$("$radio" --help | listed)" \
  "$(described orvane-radio.1 OPTIONS)"
expect_equal orvane-radio orvane-radio.1 \
  "$("$radio" --help | sed -nE '/^Faults /,/^$/s/^ {2}([a-z-]+) .*/\1/p')" \
  "$(described orvane-radio.1 FAULTS)"

if ((compared < 60)); then
  echo "Only $compared words found in the help texts: they are not understood any more."
  failures=$((failures + 1))
fi
((failures == 0)) || exit 1
echo "$compared options, commands and faults stand in the manual pages"
