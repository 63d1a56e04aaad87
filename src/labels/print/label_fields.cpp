#include "labels/print/label_fields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const LabelField *findField(QStringView name)
{
    const auto &fields = labelFields();
    const auto found = std::find_if(fields.cbegin(), fields.cend(),
                                    [name](const LabelField &field) { return field.name == name; });
    return found != fields.cend() ? &*found : nullptr;
}

} // namespace

const std::vector<LabelField> &labelFields()
{
    static const std::vector<LabelField> fields = {
        {u"Stok Kodu"_s, u"Stok kartı"_s, u"STK000123"_s, &LabelRow::stockCode},
        {u"Barkod"_s, u"Kuyruktaki barkod"_s, u"8690000000012"_s, &LabelRow::barcode},
        {u"Stok Adı"_s, u"Stok kartı"_s, u"Beyaz Peynir Tam Yağlı 500 g"_s, &LabelRow::stockName},
        {kPriceField.toString(), u"Kuyruktaki etiket fiyatı"_s, u"129,90"_s, &LabelRow::price},
    };
    return fields;
}

bool isKnownField(QStringView name)
{
    return findField(name) != nullptr;
}

QString fieldText(QStringView name, const LabelRow &row)
{
    const LabelField *const field = findField(name);
    return field != nullptr ? row.*field->value : QString();
}
