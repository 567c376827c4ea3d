#!/usr/bin/env bash
# Runs the real program over scenarios whose main thread hangs, and checks the
# switcher's watchdog from outside: a hang while the overlay is open ends the
# process with status 1 at the first tick more than 8 seconds after the main
# thread last answered, which it did just before the hang began; two
# hangs of 5 seconds with a turn of the main loop between them, or a long hang
# with the overlay closed, leave it running to the scenario's end.
#   run-watchdog.sh TOLV WORKDIR
set -uo pipefail
tolv=$1
work=$2
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$work"
failed=0

now() { date +%s.%N; }

# run NAME EXPECTED_STATUS MIN_SECONDS MAX_SECONDS: seconds from the "hanging"
# checkpoint to the end of the process.
run() {
  local name=$1 expected=$2 least=$3 most=$4
  local dump="$work/$name.jsonl"
  rm -f "$dump"
  "$tolv" --simulate "$here/$name.json" --headless --dump "$dump" 2>"$work/$name.stderr" &
  local pid=$!
  local waited=0
  until grep -q '"hanging"' "$dump" 2>/dev/null; do
    sleep 0.02
    waited=$((waited + 1))
    if ((waited > 3000)) || ! kill -0 "$pid" 2>/dev/null; then break; fi
  done
  local began
  began=$(now)
  wait "$pid"
  local status=$?
  local took
  took=$(awk -v a="$began" -v b="$(now)" 'BEGIN { printf "%.2f", b - a }')
  if [[ $status -ne $expected ]]; then
    echo "$name: exit status $status, expected $expected" >&2
    cat "$work/$name.stderr" >&2
    failed=1
  elif awk -v t="$took" -v l="$least" -v m="$most" 'BEGIN { exit !(t < l || t > m) }'; then
    echo "$name: ended $took s after the hang began, expected $least to $most" >&2
    failed=1
  else
    echo "$name: status $status after $took s"
  fi
}

run hang-while-open 1 7.5 10
run two-short-hangs-while-open 0 9.5 13
run hang-while-closed 0 8.5 12
exit $failed
