#!/usr/bin/env bash
# The core never includes a toolkit or window-system header. Views live in a
# topic's view/ folder, backends in platform/<backend>/ (other than sim/), and
# the entry point in app/main.cpp; everything else is core.
set -euo pipefail
src=$1
violations=$(grep -rnE '^\s*#\s*include\s*[<"](Q[A-Za-z]|Qt|X11/|xcb/)' "$src" \
  --include='*.h' --include='*.cpp' \
  | grep -vE "^$src/[a-z]+/view/|^$src/platform/(x11|qt)/|^$src/app/main\.cpp:" || true)
if [[ -n "$violations" ]]; then
  echo "core files include toolkit or window-system headers:" >&2
  echo "$violations" >&2
  exit 1
fi
