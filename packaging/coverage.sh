#!/usr/bin/env bash
# Line coverage of the libraries without Qt by their own tests, and the lines never run.
set -euo pipefail
cd "$(dirname "$0")/.."
. packaging/packages.sh

# shellcheck disable=SC2086
install_missing $build_packages gcovr
mkdir -p build
build_preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j "$(nproc)" --progress | tail -n 4
gcovr --root . --filter 'src/(core|image|document|link|files)/' --exclude-throw-branches \
  --txt build/coverage/coverage.txt --html-details build/coverage/lines.html \
  --print-summary build/coverage
cat build/coverage/coverage.txt
