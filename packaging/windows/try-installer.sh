#!/usr/bin/env bash
# Installs, starts, upgrades and removes the program under Wine, on a screen of its own.
#   packaging/windows/try-installer.sh [SETUP.exe [FOLDER]]    FOLDER: for pictures of its pages
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/packages.sh
need "${windows_test_packages[@]}" imagemagick xdotool
setup=${1:-}
if [ -z "$setup" ]; then
    packaging/windows/installer.sh
    setup=$(ls -t build/windows/Tezgah-Kur-*.exe | head -1)
fi
setup=$(realpath "$setup")
if [ -z "${DISPLAY:-}" ] || [ -z "${TEZGAH_OWN_SCREEN:-}" ]; then
    TEZGAH_OWN_SCREEN=1 exec xvfb-run -a -s '-screen 0 1366x768x24' "$0" "$setup" "${2:-}"
fi
pictures=${2:+$(realpath "$2")}

work=$(mktemp -d)
export WINEPREFIX=$work/wine
trap 'wineserver -k || true; rm -rf "$work"' EXIT
. packaging/windows/prefix.sh
wine=$PWD/packaging/windows/wine.sh
user=$WINEPREFIX/drive_c/users/$(id -un)
program=$user/AppData/Local/Programs/Tezgah
shortcut="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Tezgâh.lnk"
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tezgah'

fail() {
    echo "try-installer: $*" >&2
    exit 1
}
# until_so SECONDS COMMAND...
until_so() {
    local rest=$(($1 * 5))
    shift
    until "$@"; do
        [ $((rest -= 1)) -gt 0 ] || return 1
        sleep 0.2
    done
}
shown() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
registered() { "$wine" reg query "$key" >/dev/null 2>&1; }
start() { (cd "$data" && exec "$wine" "$program/tezgah.exe" --directory .); }

"$wine" "$setup" /S || fail "the installer ended with $?"
[ -s "$program/tezgah.exe" ] && [ -s "$program/kaldir.exe" ] || fail 'no program'
[ -s "$shortcut" ] || fail 'no entry in the start menu'
registered || fail 'not among the installed programs'
data=$(find "$HOME" "$user" -type d -name Tezgâh | head -1)
[ -n "$data" ] || fail 'no folder among the documents'
echo "Installed; the shop's files: ${data#"$work"}"

# The way the start menu takes; the first start asks, and Enter means the demo shop.
set_up() {
    until_so 60 shown 'Kurulum Soruları' || fail 'the program does not ask how to be set up'
    sleep 2
    xdotool search --onlyvisible --name '^Kurulum Soruları$' windowfocus key Return
}
"$wine" start /unix "$shortcut" &
set_up
until_so 60 [ -s "$data/data.dbs" ] || fail 'the program did not start'
sleep 10
start || fail 'a second copy did not end well'
if "$wine" "$setup" /S; then
    fail 'installed over a running program'
fi
"$wine" taskkill /f /im tezgah.exe >/dev/null 2>&1
wait
echo 'Started once, refused a second copy and an upgrade while running'

printf '[raf]\r\nad=Bizim\r\n' >"$data/ayar/Bizim.ayr"
before=$(cd "$data" && find . -type f -exec sha256sum {} + | sort)
sleep 2
"$wine" "$setup" /S || fail "the upgrade ended with $?"
[ "$before" = "$(cd "$data" && find . -type f -exec sha256sum {} + | sort)" ] ||
    fail 'the upgrade changed the files of the shop'
echo 'Upgraded; the files of the shop are as they were'

"$wine" reg add "$key" /f /v DataFolder /d 'C:\Eski\Tezgâh' >/dev/null
"$wine" "$setup" /S || fail "the upgrade after a move ended with $?"
if "$wine" reg query "$key" /v DataFolder | grep -q Eski; then
    fail 'documents that were moved are not found again'
fi
echo 'Found the documents that were moved'

"$wine" "$program/kaldir.exe" /S
unregistered() { ! registered; }
until_so 30 unregistered || fail 'still among the installed programs'
until_so 5 [ ! -e "$program" ] || fail 'the program is still there'
[ ! -e "$shortcut" ] || fail 'still in the start menu'
[ "$before" = "$(cd "$data" && find . -type f -exec sha256sum {} + | sort)" ] ||
    fail 'the removal changed the files of the shop'
echo 'Removed; the files of the shop are as they were'

# The way of the user, on a desktop with title bars: the installer ends in the set-up. Whoever is asked
# may let the files go too.
rm "$data/data.dbs"
desktop() { "$wine" explorer /desktop=tezgah,1366x768 "$@"; }
picture() {
    sleep 3
    [ -z "$pictures" ] || import -window root -trim +repage "$pictures/$1.png"
}
desktop "$setup" &
until_so 30 shown 'Tezgâh Kurulumu' || fail 'the installer shows no window'
picture kurulum-1
xdotool key Return
until_so 30 registered || fail 'the installer does not install'
picture kurulum-2
xdotool key Return
set_up
until_so 60 [ -s "$data/data.dbs" ] || fail 'the set-up does not start the demo shop'
"$wine" taskkill /f /im tezgah.exe >/dev/null 2>&1
wait

desktop "$program/kaldir.exe" &
until_so 30 shown 'Tezgâh Kaldırma ' || fail 'the uninstaller shows no window'
sleep 3
xdotool key Return
until_so 30 shown 'Tezgâh Kaldırma' || fail 'the uninstaller does not ask'
[ -s "$data/data.dbs" ] || fail 'the files were gone before the question'
picture kaldirma
xdotool key Left Return
until_so 30 [ ! -e "$data" ] || fail 'the files are still there'
echo 'Removed with the files of the shop, after a yes'
