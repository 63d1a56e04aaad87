# Sourced by the scripts that run the program under Wine: makes a Turkish machine in the new folder
# $WINEPREFIX, with a home of its own (Wine puts the user's documents there). Its locale is made
# here too, because a bare Debian has none.
export HOME=$WINEPREFIX.home LOCPATH=$WINEPREFIX.locale
mkdir -p "$HOME" "$LOCPATH"
localedef -i tr_TR -f UTF-8 "$LOCPATH/tr_TR.UTF-8"
export LC_ALL=tr_TR.UTF-8 WINEDEBUG=${WINEDEBUG:--all}
WINEDLLOVERRIDES='mscoree,mshtml=' wineboot --init 2>/dev/null
wine64=$(command -v wine64 || echo /usr/lib/wine/wine64)
"$wine64" winecfg -v win10 >/dev/null 2>&1 # the oldest Windows the program is for
# Free fonts stand in for those of Windows.
for font in 'Segoe UI=Liberation Sans' 'Tahoma=Liberation Sans' 'Arial=Liberation Sans' \
    'Courier New=Liberation Mono' 'Times New Roman=Liberation Serif'; do
    "$wine64" reg add 'HKCU\Software\Wine\Fonts\Replacements' \
        /f /v "${font%=*}" /d "${font#*=}" >/dev/null 2>&1
done
wineserver -w
