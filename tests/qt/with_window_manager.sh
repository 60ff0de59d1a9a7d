#!/usr/bin/env bash
# Runs a program on a real X server (Xvfb, 1024 x 768) with a small window manager (openbox).
# Usage: with_window_manager.sh PROGRAM [ARGS...]
set -euo pipefail
for tool in Xvfb openbox; do
  command -v "$tool" >/dev/null || { echo "with_window_manager: $tool is missing (Debian: xvfb, openbox)" >&2; exit 1; }
done
# The server picks a display that no other server holds and writes its number down.
number_file=$(mktemp -u)
mkfifo "$number_file"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
server=$!
trap 'kill $wm $server 2>/dev/null; wait 2>/dev/null; rm -f "$number_file"' EXIT
wm=
read -r -t 30 number <"$number_file" || { echo "with_window_manager: Xvfb did not start" >&2; exit 1; }
display=:$number
DISPLAY=$display openbox --sm-disable >/dev/null 2>&1 &
wm=$!
sleep 1
# Under the sanitizers: the session bus library holds on to a buffer of its own.
export LSAN_OPTIONS="suppressions=$(dirname "$0")/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"
env -u QT_QPA_PLATFORM DISPLAY="$display" "$@"
