#!/usr/bin/env bash
# tidy.sh BUILD: clang-tidy over every source of the programs, with the checks of .clang-tidy.
set -euo pipefail
build=$1
git ls-files 'src/*.cpp' |
  xargs -P "$(nproc)" -n 1 sh -c '
    out=$(clang-tidy -quiet -p "$0" "$1" 2>/dev/null) || { printf "%s\n%s\n" "$1" "$out"; exit 1; }
  ' "$build"
echo "clean"
