#!/usr/bin/env bash
# Configures and builds the client into build/ (or $QUORIX_BUILD_DIR).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORIX_BUILD_DIR:-$top/build}
jobs=${QUORIX_JOBS:-$(nproc)}
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$build" -j "$jobs"
