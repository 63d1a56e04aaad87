#include "labels/desk/number_generation.h"

#include "common/digits.h"

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

QString suggestedBase(ean::Symbology symbology)
{
    return u"2"_s + QString(baseDigits(symbology) - 1, u'0');
}

QString rangeHint(ean::Symbology symbology, QStringView base)
{
    const auto number = readBase(symbology, base);
    if (!number)
        return {};
    const QString digits = complete(symbology, *number);
    const bool ean8 = symbology == ean::Symbology::ean8;
    if (digits.startsWith(u'2') && (ean8 || digits.at(1) < u'7'))
        return u"%1 ile başlayan numaralar mağazaların kendi malları içindir: hiçbir üreticinin "
               "barkoduyla çakışmaz."_s.arg(ean8 ? u"2"_s : u"20"_s);
    if (digits.startsWith(u'2'))
        return u"27, 28 ve 29 ile başlayan numaraları teraziler tartılan mal için basar; kasada "
               u"ağırlık "
               "sanılabilir. 20 ile başlayınız."_s;
    if (digits.startsWith(u'0') && ean8)
        return u"0 ile başlayan sekiz haneli numaralar mağaza içidir, ama bazı okuyucular baştaki "
               "sıfırı atar. 2 ile başlayınız."_s;
    return u"Bu aralık üreticilerindir: numara başka bir ürünün barkodu olabilir. Kendi malınız "
           u"için "
           "%1 ile başlayınız."_s.arg(ean8 ? u"2"_s : u"20"_s);
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
