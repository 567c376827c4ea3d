#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks that a desktop finds what
# it needs there: the program, a desktop entry that starts the installed program
# and names an icon, and that icon in the hicolor theme.
#   check-install.sh CMAKE BUILD_DIR
set -euo pipefail
cmake=$1
build=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

fail() {
  echo "check-install: $*" >&2
  exit 1
}

"$cmake" --install "$build" --prefix "$prefix" >/dev/null

program="$prefix/bin/tolv"
[[ -x "$program" ]] || fail "no program at $program"
"$program" --version | grep -q '^tolv ' || fail "the installed program does not answer --version"

entry="$prefix/share/applications/tolv.desktop"
[[ -f "$entry" ]] || fail "no desktop entry at $entry"
[[ "$(head -n 1 "$entry")" == "[Desktop Entry]" ]] || fail "$entry does not start with [Desktop Entry]"
grep -qx 'Type=Application' "$entry" || fail "$entry is not of type Application"
grep -qx 'Name=Tolv' "$entry" || fail "$entry has no Name"
exec_line=$(grep '^Exec=' "$entry" | head -n 1)
[[ "$exec_line" =~ ^Exec=/.*/bin/tolv$ ]] || fail "$entry runs '${exec_line#Exec=}', not the installed program"
icon=$(grep '^Icon=' "$entry" | head -n 1)
icon=${icon#Icon=}
[[ -n "$icon" ]] || fail "$entry names no icon"
desktop-file-validate "$entry" || fail "$entry is not a valid desktop entry"

svg="$prefix/share/icons/hicolor/scalable/apps/$icon.svg"
[[ -f "$svg" ]] || fail "the icon '$icon' is not in the hicolor theme ($svg)"
grep -q '<svg' "$svg" || fail "$svg is not an SVG picture"
echo "check-install: program, desktop entry and icon installed under $prefix"
