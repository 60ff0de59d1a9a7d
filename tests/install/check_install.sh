#!/usr/bin/env bash
# Installs a built tree into a temporary prefix and checks what lands there: exactly the
# program and its command line, its desktop entry, the MIME types, the icon, the AppStream
# description and the manual pages, each one usable by a desktop or by man.
# Usage: check_install.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build=$1 source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
fail() { echo "check_install: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null

expected="bin/vorlane
bin/vorlane-cli
share/applications/vorlane.desktop
share/icons/hicolor/32x32/apps/vorlane.png
share/icons/hicolor/scalable/apps/vorlane.svg
share/man/man1/vorlane-cli.1
share/man/man1/vorlane.1
share/metainfo/io.github.vorlane.vorlane.metainfo.xml
share/mime/packages/vorlane.xml"
installed=$(cd "$prefix" && find . -type f | sed 's|^\./||' | LC_ALL=C sort)
[ "$installed" = "$expected" ] || fail "installed files differ:"$'\n'"$installed"
[ -x "$prefix/bin/vorlane" ] || fail "bin/vorlane is not executable"
"$prefix/bin/vorlane-cli" info "$source/examples/078.npc" >/dev/null || fail "bin/vorlane-cli does not run"
cmp -s "$source/data/vorlane.svg" "$prefix/share/icons/hicolor/scalable/apps/vorlane.svg" || fail "the SVG icon is not the source's"

# A 32 x 32 PNG: the signature, then the width and height of the IHDR chunk.
png_head=$(od -An -tx1 -N24 "$prefix/share/icons/hicolor/32x32/apps/vorlane.png" | tr -d ' \n')
[ "$png_head" = "89504e470d0a1a0a0000000d494844520000002000000020" ] || fail "the PNG icon is no 32 x 32 PNG"

command -v desktop-file-validate >/dev/null || fail "desktop-file-validate is missing (Debian: desktop-file-utils)"
report=$(desktop-file-validate "$prefix/share/applications/vorlane.desktop" 2>&1) || fail "desktop-file-validate: $report"
[ -z "$report" ] || fail "desktop-file-validate: $report"

# The MIME database takes the XML and maps both extensions in any case of letters (a glob with
# no "cs" flag); the desktop entry names the type of .npc files, the only ones the editor opens
# when it is given a file, and not that of speech files.
command -v update-mime-database >/dev/null || fail "update-mime-database is missing (Debian: shared-mime-info)"
update-mime-database "$prefix/share/mime" 2>/dev/null || fail "update-mime-database refused share/mime/packages/vorlane.xml"
for pair in npc:application/x-ja2-npc edt:application/x-ja2-edt; do
  extension=${pair%%:*} type=${pair#*:}
  globs=$(grep ":$type:" "$prefix/share/mime/globs2" || true)
  [ "$globs" = "50:$type:*.$extension" ] || fail "the glob of $type is not *.$extension in any case: $globs"
done
grep -q "^MimeType=application/x-ja2-npc;$" "$prefix/share/applications/vorlane.desktop" ||
  fail "the desktop entry claims other types than application/x-ja2-npc"
# The description passes AppStream's checks with no warning, its launchable included (that needs
# the installed tree). The check of its two web addresses needs the network and is left out.
command -v appstreamcli >/dev/null || fail "appstreamcli is missing (Debian: appstream)"
report=$(appstreamcli validate-tree --no-net "$prefix" 2>&1) || fail "appstreamcli: $report"
# The manual pages render without a warning of roff's.
for page in vorlane vorlane-cli; do
  report=$(groff -man -Tutf8 -ww -z "$prefix/share/man/man1/$page.1" 2>&1) || fail "groff: $report"
  [ -z "$report" ] || fail "groff: $page.1: $report"
done
echo "check_install: ok"
