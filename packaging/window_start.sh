#!/usr/bin/env bash
# window_start.sh [STARTS]: the start of the window beside that of a bare one, optimised builds.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build
. packaging/packages.sh
build_preset release orvane window_start >build/window_start.log 2>&1 || {
  tail -n 40 build/window_start.log >&2
  exit 1
}
build/release/bin/window_start "$@"
