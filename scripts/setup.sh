#!/usr/bin/env bash
# Installs every Debian package that building, running and testing the client needs.
# Safe to run again: apt-get only installs what is missing.
set -euo pipefail

PACKAGES=(
  build-essential g++ cmake ninja-build pkgconf ccache
  qtbase5-dev qtbase5-dev-tools qttools5-dev-tools libqt5svg5-dev
  qt5-image-formats-plugins
  fonts-noto-cjk
  dbus dbus-x11 xvfb xauth x11-utils
  clang libclang-rt-14-dev
  lsb-release
  trayer xdotool imagemagick libglib2.0-bin systemd
  dpkg-dev file
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
