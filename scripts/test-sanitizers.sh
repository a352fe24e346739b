#!/usr/bin/env bash
# Builds the client and its tests with AddressSanitizer and UBSan into
# build-asan/ (or $QUORIX_ASAN_BUILD_DIR) and runs the whole suite headless.
# Light optimisation and line tables only: the build stays quick, the reports
# still name file and line. Run scripts/setup.sh first (scripts/test.sh does).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORIX_ASAN_BUILD_DIR:-$top/build-asan}
jobs=${QUORIX_JOBS:-$(nproc)}
cmake -S "$top" -B "$build" -G Ninja -DENABLE_SANITIZERS=ON -DBUILD_BENCHMARKS=OFF \
  -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -g1" >/dev/null
cmake --build "$build" -j "$jobs"
export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure -j "$(nproc)" --timeout 600 "$@"
