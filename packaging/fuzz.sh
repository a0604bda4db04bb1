#!/usr/bin/env bash
# fuzz.sh SECONDS: every fuzz target for that long, from its corpus in fuzz/corpus.
set -euo pipefail
seconds=$1
for target in build/fuzz/bin/*_fuzz; do
  name=$(basename "$target" _fuzz)
  work=build/fuzz/corpus/$name
  mkdir -p "$work"
  seeds=fuzz/corpus/$name
  [ -d "$seeds" ] || seeds=
  log=build/fuzz/$name.log
  # shellcheck disable=SC2086
  if ! "$target" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 "$work" $seeds >"$log" 2>&1; then
    tail -n 40 "$log" >&2
    exit 1
  fi
  echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") runs," \
    "$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log") a second," \
    "$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)"
done
