#!/usr/bin/env bash
# Makes the pictures of docs/screenshots anew from the built window. Needs no display.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset dev --target screenshots orvane
mkdir -p docs/screenshots
QT_QPA_PLATFORM=offscreen build/dev/bin/screenshots docs/screenshots
