#!/bin/sh
# SPDX-License-Identifier: MIT
# installation.sh CMAKE BUILD: installs what was built into a folder of its own and looks whether it is complete.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$1" --install "$2" --prefix "$folder" >/dev/null

missing=0
for file in \
    bin/pimloft libexec/pimloft-keyguard \
    share/applications/app.pimloft.Pimloft.desktop share/metainfo/app.pimloft.Pimloft.metainfo.xml \
    share/icons/hicolor/16x16/apps/pimloft.png share/icons/hicolor/512x512/apps/pimloft.png \
    share/icons/hicolor/scalable/apps/pimloft.svg \
    share/man/man1/pimloft.1.gz share/doc/pimloft/copyright share/doc/pimloft/changelog.Debian.gz \
    share/pimloft/help/index.html share/pimloft/help/permissions.html share/pimloft/help/style.css; do
    [ -f "$folder/$file" ] || { echo "not installed: $file" >&2; missing=1; }
done
# Every program that the desktop entry names is one that was installed.
for program in $(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$folder/share/applications/"*.desktop); do
    [ -x "$folder/bin/$program" ] || { echo "not installed: $program" >&2; missing=1; }
done
"$folder/bin/pimloft" --version | grep -q '^Pimloft ' || { echo "the installed program does not run" >&2; missing=1; }
exit $missing
