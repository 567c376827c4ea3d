#!/usr/bin/env bash
# What Tolv costs on a live X11 desktop: Xvfb, openbox and N xterms, with the
# built program on a bottom bar, auto-hide on (as every run starts). Reports,
# with the bar resting shown (held open at launch) and resting hidden:
#   - time to first frame: from the start until the bar's window is mapped;
#   - CPU per idle minute (% of one core) and main-thread wake-ups per second,
#     from /proc (utime + stime, voluntary context switches of the main thread);
#   - resident memory;
# and, with the bar shown, the CPU taken to absorb a burst of title changes and
# window openings.
#
#   bench/live/idle-cost.sh [BUILD_DIR] [XTERMS] [IDLE_SECONDS] [TITLE_CHANGES]
set -euo pipefail
build=${1:-build}
xterms=${2:-30}
idle=${3:-60}
titles=${4:-300}
tolv=$(realpath "$build/tolv")
ticks_per_second=$(getconf CLK_TCK)

work=$(mktemp -d)
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

display=99
while [[ -e /tmp/.X11-unix/X$display || -e /tmp/.X$display-lock ]]; do display=$((display + 1)); done
export DISPLAY=:$display
Xvfb "$DISPLAY" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
pids+=($!)
for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.05; done
openbox >/dev/null 2>&1 &
pids+=($!)
sleep 1
# The windows the window manager manages: one property read.
client_count() { xprop -root _NET_CLIENT_LIST 2>/dev/null | tr -cd ',#' | wc -c; }
for i in $(seq "$xterms"); do
  xterm -T "Terminal $i" >/dev/null 2>&1 &
  pids+=($!)
done
for _ in $(seq 200); do
  (($(client_count) >= xterms)) && break
  sleep 0.1
done
xdotool mousemove 640 300

cpu_ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
wakeups() { awk '/^voluntary_ctxt_switches/ {print $2}' "/proc/$1/status"; }
rss_mb() { awk '/^VmRSS/ {printf "%.1f", $2 / 1024}' "/proc/$1/status"; }
now() { date +%s.%N; }

# Starts Tolv with a fresh profile. Sets $tolv_pid and $first_frame.
start_tolv() {
  export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
  export XDG_RUNTIME_DIR=$work/runtime
  mkdir -p "$XDG_CONFIG_HOME/Tolv" "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  cat >"$XDG_CONFIG_HOME/Tolv/com.example.Tolv.plist" <<PLIST
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
<key>taskbarLocation</key><string>bottomL</string>
</dict></plist>
PLIST
  local start clients
  clients=$(client_count)
  start=$(now)
  "$tolv" >"$work/tolv.log" 2>&1 &
  tolv_pid=$!
  pids+=("$tolv_pid")
  # The bar's window joins the window manager's client list when it is mapped.
  # One property read per look: a search through the window tree (xdotool)
  # takes seconds with 30 xterms and would be measured instead.
  until (($(client_count) > clients)); do sleep 0.01; done
  first_frame=$(echo "$(now) - $start" | bc)
}

stop_tolv() {
  kill "$tolv_pid"
  wait "$tolv_pid" 2>/dev/null || true
}

# CPU % of a core and wake-ups per second over the idle time.
measure_idle() {
  local cpu0 wake0 cpu1 wake1
  cpu0=$(cpu_ticks "$tolv_pid")
  wake0=$(wakeups "$tolv_pid")
  sleep "$idle"
  cpu1=$(cpu_ticks "$tolv_pid")
  wake1=$(wakeups "$tolv_pid")
  idle_cpu=$(echo "scale=3; ($cpu1 - $cpu0) * 100 / ($ticks_per_second * $idle)" | bc)
  idle_wakeups=$(echo "scale=2; ($wake1 - $wake0) / $idle" | bc)
}

report() {
  printf '%-32s first frame %5.2f s  idle CPU %6.3f %%  wake-ups %6.2f /s  RSS %5s MB\n' \
    "$1" "$first_frame" "$idle_cpu" "$idle_wakeups" "$(rss_mb "$tolv_pid")"
}

echo "Tolv on Xvfb + openbox with $xterms xterms; idle over $idle s"

start_tolv
sleep 5
measure_idle
report "bar held shown at launch"

# The burst: title changes spread over the xterms, then ten new windows.
windows=($(xdotool search --class xterm))
cpu0=$(cpu_ticks "$tolv_pid")
for i in $(seq "$titles"); do
  xdotool set_window --name "Renamed $i" "${windows[$((i % ${#windows[@]}))]}"
done
for i in $(seq 10); do
  xterm -T "Burst $i" >/dev/null 2>&1 &
  pids+=($!)
done
sleep 3
cpu1=$(cpu_ticks "$tolv_pid")
printf '%-32s %d title changes and 10 windows: CPU %d ms\n' "burst, bar shown" "$titles" \
  $(((cpu1 - cpu0) * 1000 / ticks_per_second))

# The first click ends the launch hold; the pointer is away, so the bar hides.
xdotool click 1
sleep 3
measure_idle
report "bar hidden"
stop_tolv
