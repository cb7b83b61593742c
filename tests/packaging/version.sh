#!/bin/sh
# SPDX-License-Identifier: MIT
# version.sh BUILD VERSION BUILD_NUMBER: whatever tells a version tells this one.
set -eu
build=$1
version=$2
number=$3
package=$(mktemp -d)
trap 'rm -rf "$package"' EXIT
dpkg-deb -x "$(ls "$build"/package/pimloft_"$version"-1_*.deb)" "$package"

status=0
# expect WHO WHAT TEXT
expect() {
    case $3 in
    *"$2"*) ;;
    *)
        echo "$1: no \"$2\" in \"$3\"" >&2
        status=1
        ;;
    esac
}
expect "the program" "Pimloft $version ($number)" "$("$build/bin/pimloft" --version)"
expect "the installed program" "Pimloft $version ($number)" "$("$package/usr/bin/pimloft" --version)"
expect "the package" "$version-1" "$(dpkg-deb -f "$build"/package/pimloft_"$version"-1_*.deb Version)"
expect "the package's changelog" "pimloft ($version-1)" \
    "$(zcat "$package/usr/share/doc/pimloft/changelog.Debian.gz" | head -n 1)"
expect "the metainfo" "<release version=\"$version\"" \
    "$(grep -m 1 '<release ' "$package/usr/share/metainfo/app.pimloft.Pimloft.metainfo.xml")"
expect "the manual page" ".Os Pimloft $version" "$(zcat "$package/usr/share/man/man1/pimloft.1.gz" | grep '^\.Os')"
expect "the manual page" "/usr/share/pimloft/help" "$(zcat "$package/usr/share/man/man1/pimloft.1.gz")"
expect "the bundle" "<string>$version</string>" \
    "$(grep -A 1 CFBundleShortVersionString "$build/packaging/macos/Info.plist")"
expect "the bundle" "<string>$number</string>" "$(grep -A 1 '>CFBundleVersion<' "$build/packaging/macos/Info.plist")"
exit $status
