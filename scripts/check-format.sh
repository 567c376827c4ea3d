#!/usr/bin/env bash
# Every C++ source of the project is clang-format clean.
set -euo pipefail
clang_format=$1
root=$2
cd "$root"
mapfile -t files < <(git ls-files -co --exclude-standard -- 'src/*.h' 'src/*.cpp' 'tests/*.h' \
  'tests/*.cpp' 'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 2>/dev/null || \
  find src tests bench -name '*.h' -o -name '*.cpp')
"$clang_format" --dry-run --Werror "${files[@]}"
