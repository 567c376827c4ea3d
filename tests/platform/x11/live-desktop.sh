#!/usr/bin/env bash
# Starts or stops a virtual X server with a window manager for the live tests.
#   live-desktop.sh start STATE   starts Xvfb on a free display and openbox on it,
#                                 waits until openbox manages the screen, and
#                                 writes DISPLAY and both pids to STATE
#   live-desktop.sh stop STATE    stops what STATE names and removes it
set -euo pipefail
action=$1
state=$2

wait_for() {
  local tries=$1
  shift
  for ((i = 0; i < tries; ++i)); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.1
  done
  return 1
}

window_manager_ready() {
  DISPLAY=$1 xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

case "$action" in
  start)
    "$0" stop "$state" || true
    for ((number = 90; number < 190; ++number)); do
      [[ -e /tmp/.X$number-lock || -e /tmp/.X11-unix/X$number ]] && continue
      display=:$number
      setsid Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
      xvfb=$!
      if wait_for 100 xprop -display "$display" -root; then break; fi
      kill "$xvfb" 2>/dev/null || true
      display=
    done
    if [[ -z "${display:-}" ]]; then
      echo "live-desktop: no X server could be started" >&2
      exit 1
    fi
    # openbox now and then ends before it takes a fresh server; it gets a second chance.
    for attempt in 1 2; do
      DISPLAY=$display setsid openbox >"$state.openbox.log" 2>&1 &
      openbox=$!
      printf 'DISPLAY=%s\nXVFB_PID=%s\nOPENBOX_PID=%s\n' "$display" "$xvfb" "$openbox" >"$state"
      if wait_for 100 window_manager_ready "$display"; then exit 0; fi
      kill "$openbox" 2>/dev/null || true
      cat "$state.openbox.log" >&2
    done
    echo "live-desktop: openbox did not take the screen $display" >&2
    "$0" stop "$state"
    exit 1
    ;;
  stop)
    [[ -f "$state" ]] || exit 0
    # shellcheck disable=SC1090
    source "$state"
    kill "$OPENBOX_PID" "$XVFB_PID" 2>/dev/null || true
    wait_for 50 bash -c "! kill -0 $XVFB_PID" || kill -9 "$XVFB_PID" 2>/dev/null || true
    rm -f "$state" "$state.openbox.log"
    ;;
  *)
    echo "usage: live-desktop.sh start|stop STATE" >&2
    exit 2
    ;;
esac
