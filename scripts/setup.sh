#!/usr/bin/env bash
# Installs the Debian 12 packages that building, running and testing Tolv need.
# Idempotent: only missing packages are installed, and the package lists are
# refreshed once, only when something has to be installed.
set -euo pipefail

packages=(
  # build and tests
  cmake ninja-build g++ pkg-config clang-format desktop-file-utils
  libgtest-dev libgmock-dev libbenchmark-dev
  # core libraries
  nlohmann-json3-dev libicu-dev libssl-dev
  # views and the toolkit's platform services; a font with the symbols and
  # emoji of the bar's own texts, which the toolkit falls back to
  qt6-base-dev fonts-symbola
  # the live X11 desktop and the defaults store
  libxcb1-dev libxcb-ewmh-dev libxcb-icccm4-dev libxcb-randr0-dev libxcb-keysyms1-dev
  libxcb-xtest0-dev libxcb-xinput-dev libx11-dev libplist-dev
  # still images of windows for the switcher
  libxcb-composite0-dev
  # the tray on the live desktop: volume through libpulse
  libpulse-dev
  # default applications and launching on the live desktop: GIO
  libglib2.0-dev
  # end-to-end tests: a real X server, window manager and clients
  xvfb openbox x11-apps xterm xdotool x11-utils
  # and the tray's services: a session bus, gdbus to send launcher-entry
  # signals, a PulseAudio server with a null sink and pactl to check it
  dbus libglib2.0-bin pulseaudio pulseaudio-utils
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$package")
done

if ((${#missing[@]} == 0)); then
  exit 0
fi

echo "setup: installing ${missing[*]}"
run_as_root=()
if ((EUID != 0)); then
  if command -v sudo >/dev/null; then
    run_as_root=(sudo)
  else
    echo "setup: these packages are missing and this is not root: ${missing[*]}" >&2
    exit 1
  fi
fi
export DEBIAN_FRONTEND=noninteractive
"${run_as_root[@]}" apt-get update -qq
"${run_as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
