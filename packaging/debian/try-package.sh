#!/usr/bin/env bash
# Installs the package, starts the installed program without a display, removes it again. The shop's
# folder must outlive the package.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need desktop-file-utils appstream
packages=(build/package/tezgah_*.deb)
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -m 700 "$work/run" "$work/home"

"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --reinstall --no-install-recommends "./${packages[0]}" >/dev/null
desktop-file-validate /usr/share/applications/tezgah.desktop
appstreamcli validate --no-net /usr/share/metainfo/tezgah.metainfo.xml
HOME=$work/home XDG_RUNTIME_DIR=$work/run QT_QPA_PLATFORM=offscreen \
    timeout 300 tezgah-dukkan --tour "$work/cikti"
ls "$work"/cikti/*.pdf >/dev/null
"${as_root[@]}" apt-get remove -y -q tezgah >/dev/null
! command -v tezgah
test -s "$work/home/Tezgâh/data.dbs"
echo "installed, toured, removed"
