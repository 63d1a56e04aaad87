#include "common/code_list.h"

CodeList CodeList::read(RecordSet records, QStringView display, QStringView key)
{
    CodeList list;
    for (; !records.eof(); records.moveNext()) {
        list.names += records.text(display);
        list.codes += records.text(key);
        list.codes += kCodeMark;
    }
    return list;
}

int CodeList::find(const QString &name, const QString &key) const
{
    for (int i = 0; i < names.size(); ++i)
        if (names.at(i) == name && code(i) == key)
            return i;
    return static_cast<int>(names.indexOf(name));
}

QString CodeList::code(int index) const
{
    if (index < 0 || index >= names.size())
        return {};
    return codes.split(kCodeMark.toString()).at(index);
}
