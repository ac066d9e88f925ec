#!/usr/bin/env bash
# Installs a built tree into a temporary root (DESTDIR, prefix /usr) and checks
# the installation: the files in their places, the desktop entry and the
# AppStream file valid, the command-line tool reading the shared tables, and
# the program starting for two users, each with a data folder of their own,
# the shared data left as installed.
# Usage: tests/install/check-install.sh [BUILD_DIR]
set -euo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$here/build}" && pwd)
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
fail() { echo "check-install: $*" >&2; exit 1; }

DESTDIR="$root" cmake --install "$build" --prefix /usr >/dev/null
usr="$root/usr"
for f in bin/calvix bin/calvix-cli \
         share/calvix/cvdata.txt share/calvix/cvxtp.dlj share/calvix/cvxcl.dlj share/calvix/cvxlp.dlj \
         share/calvix/mmedia/hey.wav share/calvix/fonts/LCDfont.ttf \
         share/applications/org.calvix.Calvix.desktop share/metainfo/org.calvix.Calvix.metainfo.xml \
         share/mime/packages/org.calvix.Calvix.xml share/icons/hicolor/scalable/apps/org.calvix.Calvix.svg \
         share/icons/hicolor/48x48/apps/org.calvix.Calvix.png; do
  [ -e "$usr/$f" ] || fail "missing $f"
done
desktop-file-validate "$usr/share/applications/org.calvix.Calvix.desktop"
appstreamcli validate --no-net "$usr/share/metainfo/org.calvix.Calvix.metainfo.xml" >/dev/null \
  || fail "the AppStream file is not valid"

# The installed tool finds the element table under share/calvix.
"$usr/bin/calvix-cli" element Fe | grep -q $'^nombres\tHierro$' || fail "calvix-cli does not read the shared tables"

# Two users start the program from the installed tree.
before=$(cd "$usr/share/calvix" && find . -type f -exec md5sum {} + | sort)
for user in ana luis; do
  home="$root/home/$user"
  mkdir -p "$home/runtime" "$home/shots"
  chmod 700 "$home/runtime"
  HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config" XDG_RUNTIME_DIR="$home/runtime" \
    LANG=fr_FR.UTF-8 CALVIX_SCREENSHOTS="$home/shots" CALVIX_SCREENSHOT_WINDOWS=control-centre \
    timeout 120 xvfb-run -a -s "-screen 0 1280x800x24" "$usr/bin/calvix" >/dev/null 2>&1 \
    || fail "calvix did not start for $user"
  [ -s "$home/shots/control-centre.png" ] || fail "no picture of the control centre for $user"
  data="$home/.local/share/Calvix"
  [ -d "$data/datos" ] || fail "no datos/ in $user's data folder"
  [ -s "$data/cvxlp.dlj" ] || fail "the draws were not copied for $user"
  [ ! -e "$data/cvxtp.dlj" ] || fail "read-only tables were copied for $user"
done
after=$(cd "$usr/share/calvix" && find . -type f -exec md5sum {} + | sort)
[ "$before" = "$after" ] || fail "the program changed its shared data"
echo "check-install: the installation works"
