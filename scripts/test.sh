#!/usr/bin/env bash
# Sets the machine up, builds, and runs the whole test suite headless.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORIX_BUILD_DIR:-$top/build}
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh"
export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure -j "$(nproc)" --timeout 300 "$@"
