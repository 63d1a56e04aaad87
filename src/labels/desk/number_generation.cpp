#include "labels/desk/number_generation.h"

#include "common/digits.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace numbering {

namespace {

/// With what the shop's own numbers may begin: 2 with eight digits, with thirteen the first of 20
/// to 29 of which its scales print none; "" when they print some of each.
QString freeStart(ean::Symbology symbology, const QStringList &scales)
{
    if (symbology == ean::Symbology::ean8)
        return u"2"_s;
    for (int start = 20; start < 30; ++start) {
        QString digits = QString::number(start);
        if (std::none_of(scales.cbegin(), scales.cend(), [&](const QString &prefix) {
                return prefix.startsWith(digits) || digits.startsWith(prefix);
            }))
            return digits;
    }
    return {};
}

} // namespace

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

QString suggestedBase(ean::Symbology symbology, const QStringList &scales)
{
    const QString free = freeStart(symbology, scales);
    return (free.isEmpty() ? u"20"_s : free).leftJustified(baseDigits(symbology), u'0');
}

QString rangeHint(ean::Symbology symbology, QStringView base, const QStringList &scales)
{
    const auto number = readBase(symbology, base);
    if (!number)
        return {};
    const QString digits = complete(symbology, *number);
    const bool ean8 = symbology == ean::Symbology::ean8;
    const QString free = freeStart(symbology, scales);
    const QString advice = free.isEmpty() ? QString() : u" %1 ile başlayınız."_s.arg(free);
    const auto scale = std::find_if(scales.cbegin(), scales.cend(), [&](const QString &prefix) {
        return !ean8 && digits.startsWith(prefix);
    });
    if (scale != scales.cend())
        return u"%1 ile başlayan numaraları terazi basar: bir tartı etiketi bu malın barkodu "
               "sanılabilir."_s.arg(*scale) +
               advice;
    if (digits.startsWith(u'2'))
        return u"%1 ile başlayan numaralar mağazaların kendi malları içindir: hiçbir üreticinin "
               "barkoduyla%2 çakışmaz."_s.arg(
                   digits.first(ean8 ? 1 : 2),
                   ean8 || scales.isEmpty()
                       ? QString()
                       : u" ve terazi etiketleriyle (%1)"_s.arg(scales.join(u", "_s)));
    if (digits.startsWith(u'0') && ean8)
        return u"0 ile başlayan sekiz haneli numaralar mağaza içidir, ama bazı okuyucular baştaki "
               u"sıfırı atar."_s +
               advice;
    return u"Bu aralık üreticilerindir: numara başka bir ürünün barkodu olabilir."_s + advice;
}

QString memoryKey(ean::Symbology symbology)
{
    return symbology == ean::Symbology::ean8 ? u"Ean8"_s : u"Ean13"_s;
}

std::optional<qint64> readBase(ean::Symbology symbology, QStringView text)
{
    QString digits = text.trimmed().toString();
    digits.remove(u'.');
    if (digits.isEmpty() || !areDigits(digits) || digits.size() > baseDigits(symbology))
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
