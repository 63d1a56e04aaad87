#include "shell/code_list.h"

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

QString CodeList::code(int index) const
{
    if (index < 0 || index >= names.size())
        return {};
    return codes.split(kCodeMark.toString()).at(index);
}
