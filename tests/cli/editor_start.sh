#!/usr/bin/env bash
# The editor's own command line: --version, and without a display one error line and status 2
# for whatever it is given, never an abort. Usage: editor_start.sh VORLANE
set -uo pipefail
vorlane=$1
failed=0
fail() { echo "FAIL: $*"; failed=1; }

version=$("$vorlane" --version) || fail "--version exits $?"
[[ $version =~ ^vorlane\ [0-9]+\.[0-9]+ ]] || fail "--version prints '$version'"

out=$(mktemp) err=$(mktemp)
trap 'rm -f "$out" "$err"' EXIT
# No display at all, and a platform that needs one which is not there.
for environment in "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM" \
                   "env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb"; do
  for arguments in "" "x.npc" "/" "a.npc b.npc" "--bogus"; do
    # shellcheck disable=SC2086
    $environment "$vorlane" $arguments >"$out" 2>"$err"
    status=$?
    what="'$environment vorlane $arguments'"
    [ "$status" = 2 ] || fail "$what exits $status"
    [ ! -s "$out" ] || fail "$what prints on standard output"
    [ "$(wc -l <"$err")" = 1 ] || fail "$what prints $(wc -l <"$err") lines: $(cat "$err")"
  done
done
[ "$failed" = 0 ] && echo "editor start: 1 version, 10 runs without a display: passed"
exit "$failed"
