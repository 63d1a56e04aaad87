#!/usr/bin/env bash
# What the build cannot see: which folder may include what.
#   core      everything outside platform/ and forms/: no widgets, no printers, no database engine
#   forms     windows: no platform, no statements
#   paper     a floor beneath the rooms: includes itself and Qt alone
#   rooms     do not include each other's forms; labels/print may read labels/layout,
#             labels/desk (stock list, queue, documents, numbers) and labels/designer both
set -euo pipefail
shopt -s lastpipe # so that refuse() marks the failure in this shell, not in a copy of it
cd "$(dirname "$0")/.."
failed=0

refuse() { # message, pattern, files on standard input
    local found
    found=$(xargs -r grep -nE "$2" || true)
    if [ -n "$found" ]; then
        printf '%s:\n%s\n' "$1" "$found"
        failed=1
    fi
}

core() { git ls-files 'src/*.h' 'src/*.cpp' | grep -vE '^src/(platform/|tour/|app/|main\.cpp)|/forms/'; }
forms() { git ls-files 'src/**/forms/*.h' 'src/**/forms/*.cpp'; }

core | refuse "core includes widgets, printers or an engine" \
    '#include .(QtWidgets|QtPrintSupport|QWidget|QDialog|QApplication|QPrinter|QMessageBox|sqlite3|sql\.h|sqlext|windows\.h)'
core | refuse "core includes a form or the platform" '#include "(platform/|[a-z/]*forms/|ui_)'
git ls-files 'src/shell/*' 'src/sales/*' 'src/labels/*' 'src/common/*' 'src/platform/*' |
    refuse "a room includes what connects the rooms" '#include "(app|tour)/'
forms | refuse "a form includes the platform" '#include "platform/'
forms | refuse "a form holds a statement" '(select \*|Update [a-z]+ set|INSERT INTO|UPDATE [A-Z]+ SET)'
git ls-files 'src/paper/*' | refuse "paper leans on what stands upon it" \
    '#include "(app|common|labels|platform|sales|shell|tour)/'
git ls-files 'src/*.h' 'src/*.cpp' | refuse "string connect or a forgotten mark" \
    '\b(SIGNAL|SLOT)\(|\b(TODO|FIXME|XXX)\b'

for room in shell sales labels/layout labels/print labels/desk labels/designer; do
    for other in shell sales labels/layout labels/print labels/desk labels/designer; do
        [ "$room" = "$other" ] && continue
        git ls-files "src/$room/*.h" "src/$room/*.cpp" |
            refuse "$room includes a form of $other" "#include \"$other/forms/"
        case "$room $other" in
        "labels/print labels/layout" | "labels/desk labels/layout" | "labels/desk labels/print" | \
            "labels/designer labels/layout" | "labels/designer labels/print") continue ;;
        esac
        git ls-files "src/$room/*.h" "src/$room/*.cpp" |
            refuse "$room leans on $other" "#include \"$other/"
    done
done

if [ "$failed" -eq 0 ]; then
    echo "layers: well"
fi
exit "$failed"
