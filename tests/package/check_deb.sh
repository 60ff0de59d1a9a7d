#!/usr/bin/env bash
# Checks the Debian package that scripts/package made, as root on this machine: lintian; then an
# install with apt-get, after which the files are there, the desktop's caches know the editor
# (refreshed by the triggers of shared-mime-info, desktop-file-utils and hicolor-icon-theme),
# both programs name the project's version, and the editor shows its window on an X server with
# every library it loads coming from the package's dependencies; then a purge, after which no
# file of the package is left and the caches no longer name it. A vorlane package installed
# before is removed first, and the package is removed again whatever happens.
# Usage: tests/package/check_deb.sh [PACKAGE.deb]
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/packages.sh
Need_Packages "${PACKAGE_TEST_PACKAGES[@]}"
version=$(sed -n 's/^project(Vorlane VERSION \([^ ]*\) .*/\1/p' CMakeLists.txt)
deb=$(realpath "${1:-build/package/vorlane_${version}_$(dpkg --print-architecture).deb}")
fail() { echo "check_deb: $*" >&2; exit 1; }
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
Apt_Get() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" >>"$apt_log" 2>&1; }
[ -f "$deb" ] || fail "$deb is missing; run scripts/package deb"
apt_log=$(dirname "$deb")/check_deb_apt.log
: >"$apt_log"

# Warnings that are accepted, one "tag: reason" a line. Errors never are.
allowed_warnings=()
report=$(lintian --fail-on none --info "$deb" 2>/dev/null) || fail "lintian failed to run on $deb"
if [ -n "$report" ]; then echo "$report" | sed 's/^/lintian: /'; fi
while IFS= read -r line; do
  case $line in
    E:*) fail "lintian reports an error: $line" ;;
    W:*)
      tag=$(echo "$line" | awk '{print $3}')
      printf '%s\n' "${allowed_warnings[@]}" | grep -q "^$tag:" || fail "lintian warns, and $tag is not allowed: $line" ;;
  esac
done <<<"$report"
[ "$(dpkg-deb -f "$deb" Version)" = "$version" ] || fail "the package's version is not $version"

if dpkg-query -W -f='${Status}' vorlane 2>/dev/null | grep -q "installed"; then
  echo "check_deb: removing the vorlane package that was installed before"
  Apt_Get remove --purge -y vorlane
fi
trap 'Apt_Get remove --purge -y vorlane || true' EXIT

# The package's paths, and which of them exist before it comes: those must stay, the others go.
paths=$(dpkg-deb -c "$deb" | awk '{print $6}' | sed -e 's|^\./|/|' -e 's|/$||' | grep -v '^\.\?$')
existed=$(while IFS= read -r path; do if [ -e "$path" ]; then echo "$path"; fi; done <<<"$paths")

Apt_Get install -y "$deb" || fail "apt-get install $deb failed: $(cat "$apt_log")"
while IFS= read -r path; do [ -e "$path" ] || fail "$path is not there after the install"; done <<<"$paths"
[ "$(dpkg-query -L vorlane | grep -v '^/\.$' | LC_ALL=C sort)" = "$(LC_ALL=C sort <<<"$paths")" ] ||
  fail "dpkg lists other files than the package holds"
grep -q '^application/x-ja2-npc=vorlane.desktop;' /usr/share/applications/mimeinfo.cache ||
  fail "the desktop entry is not in /usr/share/applications/mimeinfo.cache"
[ -f /usr/share/mime/application/x-ja2-npc.xml ] || fail "the MIME database has no application/x-ja2-npc"
grep -qa vorlane /usr/share/icons/hicolor/icon-theme.cache || fail "the hicolor icon cache lacks the icon"
grep -q "<release version=\"$version\"" /usr/share/metainfo/io.github.vorlane.vorlane.metainfo.xml ||
  fail "the AppStream description does not name release $version"

[ "$(/usr/bin/vorlane --version)" = "vorlane $version" ] || fail "vorlane --version prints $(/usr/bin/vorlane --version)"
[ "$(/usr/bin/vorlane-cli --version)" = "vorlane-cli $version" ] || fail "vorlane-cli --version prints $(/usr/bin/vorlane-cli --version)"
/usr/bin/vorlane-cli info examples/078.npc >/dev/null || fail "vorlane-cli does not read examples/078.npc"
missing=$(ldd /usr/bin/vorlane /usr/bin/vorlane-cli | grep 'not found' || true)
[ -z "$missing" ] || fail "libraries not found: $missing"

# The editor on an X server, with the platform plugin of a desktop (xcb) and a file open. Once it
# has shown the window it is ended. The Qt plugins it had loaded, which nothing links, and the
# libraries they and the editor link must come from packages that ours depends on. (What those
# libraries load by themselves when it is there, such as X cursor themes, is their own concern.)
maps=$(mktemp) log=$(mktemp)
trap 'rm -f "$maps" "$log"; Apt_Get remove --purge -y vorlane || true' EXIT
xvfb-run -a -s '-screen 0 1024x768x24' bash -c '
  env -u QT_QPA_PLATFORM /usr/bin/vorlane examples/078.npc 2>"$2" &
  editor=$!
  for _ in $(seq 100); do
    grep -q libqxcb "/proc/$editor/maps" 2>/dev/null && grep -q libqgif "/proc/$editor/maps" && break
    sleep 0.2
  done
  sleep 1
  cat "/proc/$editor/maps" >"$1" 2>/dev/null || true
  if kill "$editor" 2>/dev/null; then wait "$editor" 2>/dev/null || true; else echo "the editor ended by itself" >>"$2"; fi' \
  _ "$maps" "$log"
grep -q libqxcb "$maps" || fail "the editor did not start on the X server: $(cat "$log")"
! grep -q "ended by itself" "$log" || fail "the editor ended by itself: $(cat "$log")"
closure=$(apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks --no-replaces \
  --no-enhances vorlane | grep -v '^ ' | sort -u)
plugins=$(awk '$6 ~ /\/qt6\/plugins\/.*\.so/ {print $6}' "$maps" | sort -u)
libraries=$( (echo /usr/bin/vorlane; echo "$plugins"; ldd /usr/bin/vorlane $plugins | awk '$3 ~ /^\// {print $3}') |
  grep -v '^/usr/bin/vorlane$' | sort -u)
while IFS= read -r library; do
  # /lib is /usr/lib, and dpkg knows a library under either name.
  owner=$(dpkg -S "/usr${library#/usr}" 2>/dev/null || dpkg -S "${library#/usr}" 2>/dev/null || true)
  owner=${owner%%:*}
  [ -n "$owner" ] || fail "the editor loaded $library, which no package holds"
  [ "$owner" = vorlane ] || grep -qx "$owner" <<<"$closure" ||
    fail "the editor loaded $library of $owner, which the package's dependencies do not bring"
done <<<"$libraries"
echo "check_deb: the editor showed its window; its Qt plugins ($(sed 's|.*/plugins/||' <<<"$plugins" | tr '\n' ' ')and" \
  "$(wc -l <<<"$libraries") libraries all come from its dependencies"

Apt_Get remove --purge -y vorlane || fail "apt-get remove --purge vorlane failed: $(cat "$apt_log")"
! dpkg-query -W -f='${Status}' vorlane 2>/dev/null | grep -q installed || fail "vorlane is still installed"
left=$(while IFS= read -r path; do
  if [ -e "$path" ] && ! grep -qxF "$path" <<<"$existed"; then echo "$path"; fi
done <<<"$paths")
[ -z "$left" ] || fail "the purge left: $left"
! grep -q vorlane /usr/share/applications/mimeinfo.cache || fail "mimeinfo.cache still names the editor"
[ ! -e /usr/share/mime/application/x-ja2-npc.xml ] || fail "the MIME database still has application/x-ja2-npc"
! grep -qa vorlane /usr/share/icons/hicolor/icon-theme.cache || fail "the hicolor icon cache still has the icon"
echo "check_deb: $(wc -l <<<"$paths") paths installed and removed, $(wc -l <<<"$existed") of them there before and left: passed"
