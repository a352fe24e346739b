#!/usr/bin/env bash
# Sets the machine up, builds, and starts the client: the GUI host with the base
# plugin and the simulated backend. Extra arguments go to the host (e.g. --silent).
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build=${QUORIX_BUILD_DIR:-$top/build}
bash "$top/scripts/setup.sh"
bash "$top/scripts/build.sh"
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
  echo "No display found: starting the client on a virtual X server (xvfb-run)." >&2
  exec xvfb-run -a -s "-screen 0 1280x800x24" "$build/bin/quorix-gui" "$@"
fi
exec "$build/bin/quorix-gui" "$@"
