#include "common/settings.h"

#include "common/settings_table.h"

#include <QList>
#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace {

void takeNumber(int &number, QStringView text)
{
    bool ok = false;
    const int stored = text.toInt(&ok);
    if (ok)
        number = stored;
}

/// With one colour only, all rows have it.
void takeColours(ListColours &colours, QStringView text)
{
    const auto both = text.split(kCodeMark);
    takeNumber(colours.row, both.value(0));
    if (both.size() < 2)
        colours.alternate = colours.row;
    else
        takeNumber(colours.alternate, both.at(1));
}

} // namespace

Settings::Settings()
{
    for (const SettingRow &row : settingRows())
        if (row.place)
            takeStored(row.place(*this), row.design);
}

QString storedText(const SettingPlace &place)
{
    if (const auto *text = std::get_if<QString *>(&place))
        return **text;
    if (const auto *flag = std::get_if<bool *>(&place))
        return **flag ? u"1"_s : u"0"_s;
    if (const auto *number = std::get_if<int *>(&place))
        return QString::number(**number);
    const ListColours &colours = *std::get<ListColours *>(place);
    return QString::number(colours.row) % kCodeMark % QString::number(colours.alternate);
}

void takeStored(const SettingPlace &place, QStringView text)
{
    if (const auto *value = std::get_if<QString *>(&place))
        **value = text.toString();
    else if (const auto *flag = std::get_if<bool *>(&place))
        **flag = text.toInt() == 1;
    else if (const auto *number = std::get_if<int *>(&place))
        takeNumber(**number, text);
    else
        takeColours(*std::get<ListColours *>(place), text);
}
