#!/usr/bin/env bash
# Renders the client's windows (main window, right-top menu, tray menu, about
# window, settings centre) under the offscreen platform into docs/screenshots/.
# Uses a throw-away settings folder so the pictures don't depend on this
# machine's stored choices. Run after a visual change and look at the result.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORIX_BUILD_DIR:-$top/build}
out=${1:-$top/docs/screenshots}
[ -x "$build/bin/quorix-gui" ] || bash "$top/scripts/build.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
QT_QPA_PLATFORM=offscreen QUORIX_CONFIG_DIR="$scratch" QUORIX_LOG_FILE="$scratch/quorix-gui.log" \
  QUORIX_LOG_STDERR=0 XDG_RUNTIME_DIR="$scratch" \
  timeout 60 "$build/bin/quorix-gui" --screenshot "$out" 2>/dev/null
ls "$out"
