#!/usr/bin/env bash
# Runs one scenario through the tolv binary and compares its checkpoint lines
# with NAME.expected.jsonl; prints a diff when they differ.
#   run-scenario.sh TOLV NAME.json WORKDIR
# A NAME.expected-status file holds the exit status a refused scenario ends
# with, and NAME.expected-stderr the message it prints (its own "tolv:" lines;
# the toolkit's warnings vary with the machine).
set -uo pipefail
tolv=$1
scenario=$2
work=$3
base=${scenario%.json}
name=$(basename "$base")
out="$work/$name"
rm -rf "$out"
mkdir -p "$out"

"$tolv" --simulate "$scenario" --headless --dump "$out/dump.jsonl" --snapshot "$out/snapshots" \
  2>"$out/stderr"
status=$?

expected_status=0
[[ -f "$base.expected-status" ]] && expected_status=$(cat "$base.expected-status")
if [[ $status -ne $expected_status ]]; then
  echo "$name: exit status $status, expected $expected_status" >&2
  cat "$out/stderr" >&2
  exit 1
fi
if [[ -f "$base.expected-stderr" ]]; then
  # The message names the file as given; compare it by its own name.
  grep '^tolv: ' "$out/stderr" | sed "s|$scenario|$name.json|g" >"$out/stderr.named"
  if ! diff -u "$base.expected-stderr" "$out/stderr.named"; then
    echo "$name: the message differs" >&2
    exit 1
  fi
fi
if [[ -f "$base.expected.jsonl" ]]; then
  if ! diff -u "$base.expected.jsonl" "$out/dump.jsonl"; then
    echo "$name: the checkpoint lines differ (got $out/dump.jsonl)" >&2
    exit 1
  fi
fi
if [[ -f "$base.expected-snapshots" ]]; then
  while read -r file; do
    [[ -z "$file" ]] && continue
    if [[ ! -s "$out/snapshots/$file" ]]; then
      echo "$name: the picture $file was not saved" >&2
      ls "$out/snapshots" >&2
      exit 1
    fi
  done <"$base.expected-snapshots"
fi
exit 0
