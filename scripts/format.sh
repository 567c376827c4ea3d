#!/usr/bin/env bash
# Formats every C++ source of the project in place with the repository's style.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard -- 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' \
  'bench/*.h' 'bench/*.cpp' 'fuzz/*.cpp' | xargs -r clang-format -i
