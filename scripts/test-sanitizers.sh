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
reports="$build/sanitizer-reports"
rm -rf "$reports" && mkdir -p "$reports"
cd "$build"
status=0
ctest --output-on-failure -j "$(nproc)" --timeout 600 "$@" || status=$?
# Every process writes its reports to a file of its own (the hosts that tests
# start have no terminal); show them all.
for report in "$reports"/*; do
  [ -e "$report" ] || continue
  echo "=== $report"
  cat "$report"
done
exit "$status"
