#!/usr/bin/env bash
# One entry point for the two things a developer does:
#   dev.sh run [SCENARIO]  set up, build, and run Tolv on a simulated desktop (the
#                          built-in demo without a scenario; headless without a display)
#   dev.sh test            set up, build, and run every test (also under ASan + UBSan)
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh

jobs=$(nproc)

configure_and_build() {
  local dir=$1
  shift
  # Developers' builds stop at any warning; a packager's build only reports them.
  cmake -S . -B "$dir" -G Ninja -DTOLV_WERROR=ON "$@" >/dev/null
  cmake --build "$dir" --parallel "$jobs"
}

case "${1:-}" in
  run)
    configure_and_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo
    shift
    if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
      # No screen to show the panels on: run headless, print each checkpoint's
      # tasks and save the panels as pictures.
      snapshots=build/simulate-snapshots
      rm -rf "$snapshots"
      echo "No display: running headless; pictures go to $snapshots/"
      exec build/tolv --simulate "$@" --headless --snapshot "$snapshots"
    fi
    exec build/tolv --simulate "$@"
    ;;
  test)
    configure_and_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo
    ctest --test-dir build --output-on-failure --parallel "$jobs"
    configure_and_build build-sanitize -DCMAKE_BUILD_TYPE=Debug -DTOLV_SANITIZE=ON -DTOLV_CORE_ONLY=ON
    ctest --test-dir build-sanitize --output-on-failure --parallel "$jobs"
    ;;
  *)
    echo "usage: scripts/dev.sh run [scenario.json] | test" >&2
    exit 2
    ;;
esac
