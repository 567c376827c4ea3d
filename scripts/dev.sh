#!/usr/bin/env bash
# One entry point for the two things a developer does:
#   dev.sh run   set up, build, and run Tolv on the built-in simulated desktop
#   dev.sh test  set up, build, and run every test (also under ASan + UBSan)
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh

jobs=$(nproc)

configure_and_build() {
  local dir=$1
  shift
  cmake -S . -B "$dir" -G Ninja "$@" >/dev/null
  cmake --build "$dir" --parallel "$jobs"
}

case "${1:-}" in
  run)
    configure_and_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo
    shift
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
