#!/usr/bin/env bash
# Builds the package for Debian from the program as it is released, checks it and says where it lies.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run package
scripts/configure.sh release
cmake --build --preset release -- --quiet
scripts/make-guide.sh
folder=build/release/package
rm -rf "$folder"
cpack --config build/release/CPackConfig.cmake -B "$folder" >"build/release/cpack.log" 2>&1 ||
    { cat build/release/cpack.log && exit 1; }
package=$(echo "$folder"/*.deb)

unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
dpkg-deb -x "$package" "$unpacked"
share=$unpacked/usr/share
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml
LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings --local-file --encoding UTF-8 \
    "$share"/man/man1/trelawn.1.gz 2>"$unpacked/warnings" >/dev/null
[ ! -s "$unpacked/warnings" ] || { cat "$unpacked/warnings" && exit 1; }
# Who answers for the package is known to whoever publishes it (CPACK_PACKAGE_CONTACT), and it is not on
# its way into Debian, where its first entry would have to answer a request.
suppressed=bogus-mail-host,bogus-mail-host-in-debian-changelog,initial-upload-closes-no-bugs
lintian --allow-root --fail-on error,warning --suppress-tags "$suppressed" "$package"
echo "The package is $package"
