#!/usr/bin/env bash
# Runs a Windows program under wine with the screen at DPI dots per inch, and the screen back at
# 96 afterwards: tests/windows/at_dpi.sh DPI PROGRAM [ARGUMENTS]. Wine reads the resolution when
# its server starts, so the server is started anew each time, and kept running at the end. The
# server and the programs that wine keeps in the background start with their output going
# nowhere: they outlive this script, and must hold no pipe of whoever waits for its output.
set -u
dpi=$1
shift
Resolution() {
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
  wineserver -k 2>/dev/null
  wineserver -w
  wineserver -p >/dev/null 2>&1
  wine reg query 'HKCU\Control Panel\Desktop' /v LogPixels >/dev/null 2>&1
}
Resolution "$dpi"
VORLANE_EXPECTED_DPI=$dpi wine "$@"
status=$?
Resolution 96
exit $status
