#!/usr/bin/env bash
# Runs a program on a real X server (Xvfb, 1024 x 768) with a small window manager (openbox).
# Usage: with_window_manager.sh PROGRAM [ARGS...]
set -euo pipefail
for tool in Xvfb openbox; do
  command -v "$tool" >/dev/null || { echo "with_window_manager: $tool is missing (Debian: xvfb, openbox)" >&2; exit 1; }
done
display=:$((90 + RANDOM % 400))
Xvfb "$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
server=$!
trap 'kill $wm $server 2>/dev/null; wait 2>/dev/null' EXIT
wm=
for _ in $(seq 50); do [ -e "/tmp/.X11-unix/X${display#:}" ] && break; sleep 0.1; done
DISPLAY=$display openbox --sm-disable >/dev/null 2>&1 &
wm=$!
sleep 1
# Under the sanitizers: the session bus library holds on to a buffer of its own.
export LSAN_OPTIONS="suppressions=$(dirname "$0")/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"
env -u QT_QPA_PLATFORM DISPLAY="$display" "$@"
