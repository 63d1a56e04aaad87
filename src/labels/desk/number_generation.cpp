#include "labels/desk/number_generation.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace numbering {

int baseDigits(ean::Symbology symbology)
{
    return symbology == ean::Symbology::ean8 ? 7 : 12;
}

qint64 largestBase(ean::Symbology symbology)
{
    return symbology == ean::Symbology::ean8 ? 9'999'999 : 999'999'999'999;
}

QString caption(ean::Symbology symbology)
{
    return symbology == ean::Symbology::ean8 ? u"Ean 8  (7 Karakter)"_s
                                             : u"Ean 13  (12 Karakter)"_s;
}

QString memoryKey(ean::Symbology symbology)
{
    return symbology == ean::Symbology::ean8 ? u"Ean8"_s : u"Ean13"_s;
}

std::optional<qint64> readBase(ean::Symbology symbology, QStringView text)
{
    QString digits = text.trimmed().toString();
    digits.remove(u'.');
    const bool plain =
        std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (digits.isEmpty() || !plain || digits.size() > baseDigits(symbology))
        return {};
    return digits.toLongLong();
}

QString complete(ean::Symbology symbology, qint64 base)
{
    return ean::checkDigit(QString::number(base)).right(baseDigits(symbology) + 1);
}

bool takesKey(ean::Symbology symbology, QStringView box, QStringView key)
{
    const bool writes = !key.isEmpty() && key.front().isPrint();
    return !writes || key == u"." || box.size() < baseDigits(symbology);
}

QString barcodeType(QStringView barcode, const QString &previous)
{
    switch (barcode.size()) {
    case 8:
        return u"1"_s;
    case 13:
        return u"2"_s;
    default:
        return previous;
    }
}

} // namespace numbering
