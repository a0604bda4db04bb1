#!/usr/bin/env bash
# fuzz.sh SECONDS [TARGET...]: each fuzz target, or those named, for that long, from its corpus in
# fuzz/corpus. Says how many inputs it ran for each second of processor time, how many edges they
# reached, and after how many seconds the last new one came.
set -euo pipefail
# Where memory was allocated is only of interest when a fault is looked at again.
export ASAN_OPTIONS=malloc_context_size=1
seconds=$1
shift
[ $# -gt 0 ] || set -- build/fuzz/bin/*_fuzz

run() {
  local target=$1 name work log options begun
  name=$(basename "$target" _fuzz)
  work=build/fuzz/corpus/$name
  mkdir -p "$work"
  log=build/fuzz/$name.log
  # Inputs that take long must not crowd out the others.
  options="-max_total_time=$seconds -timeout=10 -entropic_scale_per_exec_time=1 -print_final_stats=1"
  begun=$SECONDS
  # shellcheck disable=SC2086
  (
    ended=0
    "build/fuzz/bin/${name}_fuzz" $options "$work" "fuzz/corpus/$name" 2>&1 || ended=$?
    times
    exit $ended
  ) | while IFS= read -r line; do echo "$((SECONDS - begun)) $line"; done >"$log" || {
    tail -n 40 "$log" >&2
    return 1
  }
  awk -v name="$name" '
    match($0, /cov: [0-9]+/) {
      edges = substr($0, RSTART + 5, RLENGTH - 5)
      if (edges != reached) last = $1
      reached = edges
    }
    /stat::number_of_executed_units/ { runs = $NF }
    { for (i = 2; i <= 3; ++i) { split($i, part, /[ms]/); used[i] = part[1] * 60 + part[2] } }
    END {
      printf "%s: %d runs, %d a second of %d s processor time, %d edges, the last after %d s\n",
        name, runs, runs / (used[2] + used[3]), used[2] + used[3], reached, last
    }' "$log"
}

export -f run
export seconds
printf '%s\n' "$@" | xargs -P "$(nproc)" -I '{}' bash -euo pipefail -c 'run {}'
