#!/usr/bin/env bash
# Dependencies point down: only the application layer (src/app/) includes its
# own headers. A lower layer that needs something of the application declares
# an interface that the application provides (the runtime issue log, the
# controllers the delegate owns).
set -euo pipefail
src=$1
violations=$(grep -rnE '^\s*#\s*include\s*"app/' "$src" --include='*.h' --include='*.cpp' \
  | grep -vE "^$src/app/" || true)
if [[ -n "$violations" ]]; then
  echo "files outside app/ include app/ headers:" >&2
  echo "$violations" >&2
  exit 1
fi
