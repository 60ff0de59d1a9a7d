#!/usr/bin/env bash
# Checks the Windows installer that scripts/package made, under wine in a prefix of its own made
# anew (build/wine-setup), for the current user and for all users: a silent install puts the
# programs, the Start menu entry, the .npc file type and the entry under the installed programs in
# place; vorlane-cli.exe runs from the install folder and names the version; the silent uninstall
# that the entry names leaves drive C: and the registry as they were before. A type of another
# program that was the default of .npc before is the default again afterwards, and one that took
# the default over after the install keeps it.
# Usage: tests/package/check_setup.sh [SETUP.exe]
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/packages.sh
Need_Packages wine64 wine binutils
version=$(sed -n 's/^project(Vorlane VERSION \([^ ]*\) .*/\1/p' CMakeLists.txt)
setup=$(realpath "${1:-build/package/vorlane-$version-setup.exe}")
fail() { echo "check_setup: $*" >&2; exit 1; }
[ -f "$setup" ] || fail "$setup is missing; run scripts/package windows"

# Wine's menu builder would copy every Start menu entry into this machine's own desktop menus.
export WINEPREFIX=$PWD/build/wine-setup WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
wineserver -k 2>/dev/null || true
rm -rf "$WINEPREFIX"
wineboot --init >/dev/null 2>&1 || fail "wine could not make its prefix in $WINEPREFIX"
trap 'wineserver -k 2>/dev/null || true' EXIT
wine cmd /c exit >/dev/null 2>&1
user=$(id -un)

# Every folder and file of drive C:, and every key of the registry with each of its values, one a
# line ("user:" for HKCU, "system:" for HKLM), once wine has written them. Left out: the copy of
# itself that an NSIS uninstaller runs from the temporary folder, which Windows deletes at the
# next start (PendingFileRenameOperations), and what wine writes anew at each start (a driver's
# date, the keys of the network cards, the names of the display and monitor classes).
State() {
  wineserver -w
  (cd "$WINEPREFIX/drive_c" && find . -mindepth 1 | sed 's|^\.|C:|' | grep -v '/Temp/~nsu[0-9A-F]*\.tmp')
  for hive in user system; do
    awk -v hive="$hive" '
      /^\[/ { key = $0; sub(/^\[/, "", key); sub(/\] [0-9]+$/, "", key); gsub(/\\\\/, "\\", key); print hive ": " key; next }
      /^#/ || /^$/ { next }
      key != "" { print hive ": " key "  " $0 }' "$WINEPREFIX/$hive.reg"
  done | grep -v -e '"DriverDateData"=' -e '"PendingFileRenameOperations"=.*~nsu' -e '\\NetworkCards' \
    -e '^system: System\\CurrentControlSet\\Control\\Class\\{4D36E96[8E]-E325-11CE-BFC1-08002BE10318}  @='
}
Value() { grep -F "$1  $2=" <<<"$made" | sed "s/^.*  $2=//"; }
Expect() {
  local key=$1 name=$2 expected=$3
  [ "$(Value "$key" "$name")" = "$expected" ] || fail "$key $name is $(Value "$key" "$name"), not $expected"
}

# The version that a Windows program's version resource names: the numbers, then the texts.
Version_Resource() {
  local file=$1 offset words
  # The numbers follow the signature of VS_FIXEDFILEINFO and its own version, as 16-bit words.
  offset=$(LC_ALL=C grep -obUaP '\xbd\x04\xef\xfe' "$file" | head -n1 | cut -d: -f1)
  [ -n "$offset" ] || { echo "no version resource"; return; }
  read -r -a words < <(od -An -tu2 -j $((offset + 8)) -N 8 "$file")
  echo "${words[1]}.${words[0]}.${words[3]}.${words[2]}" \
    "$(strings -el "$file" | grep -A1 -x -e FileVersion -e ProductVersion | grep -v -e Version -e -- | sort -u | tr '\n' ' ')"
}
[ "$(Version_Resource "$setup")" = "$version.0 $version " ] ||
  fail "the installer's version resource says $(Version_Resource "$setup")"

# One silent install and uninstall. Mode: current or all. Before: the default of .npc that
# another program has set before, if any; Later: the one it sets after the install, if any.
Check() {
  local mode=$1 before=$2 later=$3 flag hive root folder start_menu
  if [ "$mode" = all ]; then
    flag=/ALLUSERS hive=system root=HKLM folder='C:\Program Files\Vorlane'
    start_menu='C:/ProgramData/Microsoft/Windows/Start Menu/Programs'
  else
    flag=/CURRENTUSER hive=user root=HKCU folder="C:\\users\\$user\\AppData\\Local\\Programs\\Vorlane"
    start_menu="C:/users/$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
  fi
  if [ -n "$before" ]; then wine reg add "$root\\Software\\Classes\\.npc" /ve /d "$before" /f >/dev/null 2>&1; fi
  local state_before
  state_before=$(State)
  wine "$setup" /S $flag >/dev/null 2>&1 || fail "the install for $mode users exits $?"
  made=$(LC_ALL=C comm -13 <(LC_ALL=C sort <<<"$state_before") <(State | LC_ALL=C sort))
  echo "The install for $mode users made:"
  sed 's/^/  /' <<<"$made"

  local slash=${folder//\\//} escaped=${folder//\\/\\\\}
  for file in vorlane.exe vorlane-cli.exe uninstall.exe; do
    grep -qxF "$slash/$file" <<<"$made" || fail "no $folder\\$file"
  done
  grep -qxF "$start_menu/Vorlane.lnk" <<<"$made" || fail "no Start menu entry in $start_menu"
  local classes="$hive: Software\\Classes" uninstall="$hive: Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Vorlane"
  Expect "$classes\\.npc" @ '"Vorlane.npc"'
  Expect "$classes\\.npc\\OpenWithProgids" '"Vorlane.npc"' '""'
  Expect "$classes\\Vorlane.npc" @ '"JA2 NPC script"'
  Expect "$classes\\Vorlane.npc\\DefaultIcon" @ "\"$escaped\\\\vorlane.exe,0\""
  Expect "$classes\\Vorlane.npc\\shell" @ '"open"'
  Expect "$classes\\Vorlane.npc\\shell\\open" @ '"Open with Vorlane"'
  Expect "$classes\\Vorlane.npc\\shell\\open\\command" @ "\"\\\"$escaped\\\\vorlane.exe\\\" \\\"%1\\\"\""
  Expect "$uninstall" '"DisplayName"' '"Vorlane"'
  Expect "$uninstall" '"DisplayVersion"' "\"$version\""
  Expect "$uninstall" '"Publisher"' '"Vorlane"'
  Expect "$uninstall" '"DisplayIcon"' "\"$escaped\\\\vorlane.exe,0\""
  Expect "$uninstall" '"InstallLocation"' "\"$escaped\""
  Expect "$uninstall" '"UninstallString"' "\"\\\"$escaped\\\\uninstall.exe\\\" $flag\""
  Expect "$uninstall" '"QuietUninstallString"' "\"\\\"$escaped\\\\uninstall.exe\\\" $flag /S\""
  Expect "$uninstall" '"NoModify"' dword:00000001
  Expect "$uninstall" '"NoRepair"' dword:00000001
  if [ -n "$before" ]; then Expect "$uninstall" '"NpcTypeBefore"' "\"$before\""; fi
  [[ $(Value "$uninstall" '"EstimatedSize"') =~ ^dword:0000[0-9a-f]{4}$ ]] || fail "EstimatedSize is $(Value "$uninstall" '"EstimatedSize"')"
  local other=user
  [ "$hive" = user ] && other=system
  ! grep -q "^$other: .*\(Vorlane\|\.npc\)" <<<"$made" || fail "the install for $mode users wrote into the other hive"

  for file in vorlane.exe vorlane-cli.exe; do
    local resource
    resource=$(Version_Resource "$WINEPREFIX/drive_c/${slash#C:/}/$file")
    [ "$resource" = "$version.0 $version " ] || fail "the version resource of $file says $resource"
  done
  local printed
  printed=$(wine "$folder\\vorlane-cli.exe" --version 2>/dev/null | tr -d '\r')
  [ "$printed" = "vorlane-cli $version" ] || fail "$folder\\vorlane-cli.exe --version prints '$printed'"

  if [ -n "$later" ]; then wine reg add "$root\\Software\\Classes\\.npc" /ve /d "$later" /f >/dev/null 2>&1; fi
  # The uninstall as a script would run it: the entry's QuietUninstallString.
  local quiet program arguments
  quiet=$(Value "$uninstall" '"QuietUninstallString"' | sed -e 's/^"//' -e 's/"$//' -e 's/\\"/"/g' -e 's/\\\\/\\/g')
  program=${quiet#\"} program=${program%%\"*} arguments=${quiet##*\" }
  # shellcheck disable=SC2086
  wine "$program" $arguments >/dev/null 2>&1 || fail "the uninstaller for $mode users exits $?"
  local left removed state_after
  state_after=$(State | LC_ALL=C sort)
  left=$(LC_ALL=C comm -13 <(LC_ALL=C sort <<<"$state_before") <(echo "$state_after"))
  removed=$(LC_ALL=C comm -23 <(LC_ALL=C sort <<<"$state_before") <(echo "$state_after"))
  [ -z "$removed" ] || fail "the install and uninstall for $mode users removed what was there before:"$'\n'"$removed"
  if [ -n "$later" ]; then
    # What the other program set stays, and nothing else: the key of .npc with its default.
    grep -qxF "$hive: Software\\Classes\\.npc  @=\"$later\"" <<<"$left" ||
      fail "the uninstall took the default of .npc from $later"
    left=$(grep -vxF -e "$hive: Software\\Classes" -e "$hive: Software\\Classes\\.npc" \
      -e "$hive: Software\\Classes\\.npc  @=\"$later\"" <<<"$left" || true)
  fi
  [ -z "$left" ] || fail "the uninstall for $mode users left:"$'\n'"$left"
  echo "The uninstall for $mode users removed all of it${before:+, and gave .npc back to $before}${later:+, and left .npc to $later}."
  if [ -n "$before$later" ]; then wine reg delete "$root\\Software\\Classes\\.npc" /f >/dev/null 2>&1; fi
}

Check current "" ""
Check all Other.npc ""
Check current "" Taken.npc

# The two modes at once are refused, and nothing is installed.
state_before=$(State)
status=0
wine "$setup" /S /ALLUSERS /CURRENTUSER >/dev/null 2>&1 || status=$?
[ "$status" = 2 ] || fail "/ALLUSERS with /CURRENTUSER exits $status"
[ "$(State)" = "$state_before" ] || fail "/ALLUSERS with /CURRENTUSER changed something"
echo "check_setup: passed"
