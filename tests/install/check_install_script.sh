#!/usr/bin/env bash
# Runs scripts/install and scripts/install --uninstall on two temporary prefixes, one that does
# not exist yet and one where another program's entry, MIME type and icon already are, with their
# caches, and checks that the uninstall leaves each exactly as it was, to the contents of every
# file. It builds in build/install, so it is run by hand rather than by ctest.
# Usage: tests/install/check_install_script.sh
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/packages.sh
Need_Packages desktop-file-utils shared-mime-info gtk-update-icon-cache
[ ! -e build/install/install_made.txt ] || { echo "an install from build/install is still there; uninstall it first" >&2; exit 1; }
root=$(mktemp -d)
trap 'rm -rf "$root" "$root.log"' EXIT
fail() { echo "check_install_script: $*" >&2; exit 1; }
Snapshot() { (cd "$root" && find . -printf '%p %y %m\n' && find . -type f -exec md5sum {} +) | LC_ALL=C sort; }

# Another program's files, and the caches made from them.
old=$root/old
mkdir -p "$old/bin" "$old/share/applications" "$old/share/mime/packages" "$old/share/icons/hicolor/48x48/apps"
printf '[Desktop Entry]\nType=Application\nName=Other\nExec=other\nMimeType=text/x-other;\n' >"$old/share/applications/other.desktop"
printf '<?xml version="1.0"?>\n<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="text/x-other"><glob pattern="*.other"/></mime-type>\n</mime-info>\n' >"$old/share/mime/packages/other.xml"
cp data/vorlane.svg "$old/share/icons/hicolor/48x48/apps/other.svg"
update-desktop-database -q "$old/share/applications"
update-mime-database "$old/share/mime" 2>/dev/null
gtk-update-icon-cache -q -t -f "$old/share/icons/hicolor"

for prefix in "$root/new/usr" "$old"; do
  before=$(Snapshot)
  bash scripts/install "$prefix" >"$root.log" 2>&1 || { cat "$root.log"; fail "the install into $prefix failed"; }
  for file in bin/vorlane share/applications/vorlane.desktop share/man/man1/vorlane.1 \
    share/metainfo/io.github.vorlane.vorlane.metainfo.xml share/mime/application/x-ja2-npc.xml; do
    [ -f "$prefix/$file" ] || fail "the install into $prefix made no $file"
  done
  grep -q '^application/x-ja2-npc=vorlane.desktop;' "$prefix/share/applications/mimeinfo.cache" || fail "mimeinfo.cache lacks the editor"
  # A second install into the same prefix, then one into another: refused while the first is there.
  bash scripts/install "$prefix" >"$root.log" 2>&1 || { cat "$root.log"; fail "the second install into $prefix failed"; }
  ! bash scripts/install "$root/elsewhere" >/dev/null 2>&1 || fail "an install elsewhere was not refused"
  bash scripts/install --uninstall >"$root.log" 2>&1 || { cat "$root.log"; fail "the uninstall from $prefix failed"; }
  after=$(Snapshot)
  [ "$before" = "$after" ] || fail "the uninstall left $prefix changed:"$'\n'"$(diff <(echo "$before") <(echo "$after"))"
done
! bash scripts/install --uninstall >/dev/null 2>&1 || fail "a second uninstall found something to remove"
echo "check_install_script: ok"
