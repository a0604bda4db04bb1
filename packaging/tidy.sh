#!/usr/bin/env bash
# tidy.sh BUILD [FILE...]: clang-tidy over every source of programs and tests, or those named, with
# the checks of .clang-tidy.
set -euo pipefail
build=$1
shift

for config in .clang-tidy tests/.clang-tidy; do
  set -f
  for check in $(sed -n 's/^  -\([a-z][A-Za-z.*-]*\),\{0,1\}$/\1/p' "$config"); do
    grep -qF "# $check: " "$config" || {
      echo "$config switches off $check without a reason" >&2
      exit 1
    }
  done
  set +f
done

# Large files first, so that no processor waits for the last one.
if [ $# -eq 0 ]; then mapfile -t files < <(git ls-files 'src/*.cpp' 'tests/*.cpp' | xargs ls -S); else files=("$@"); fi
printf '%s\n' "${files[@]}" |
  xargs -P "$(nproc)" -n 1 sh -c '
    out=$(clang-tidy -quiet -p "$0" "$1" 2>/dev/null) || { printf "%s\n%s\n" "$1" "$out"; exit 1; }
  ' "$build"
echo "clean"
