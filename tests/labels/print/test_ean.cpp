#include "labels/desk/number_generation.h"
#include "labels/print/ean.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <zint.h>

using namespace Qt::StringLiterals;
using ean::Symbology;

namespace {

/// The dark modules as '1', light ones as '0'.
QString pattern(const BarSymbol &symbol)
{
    QString text(symbol.modules, u'0');
    for (const Bar &bar : symbol.bars)
        for (int i = 0; i < bar.width; ++i)
            text[bar.start + i] = u'1';
    return text;
}

using ForeignSymbol = std::unique_ptr<zint_symbol, void (*)(zint_symbol *)>;

/// 7 or 12 digits encoded by another encoder; null when it refuses them.
ForeignSymbol foreign(const QString &digits)
{
    ForeignSymbol symbol(ZBarcode_Create(), ZBarcode_Delete);
    symbol->symbology = BARCODE_EANX;
    const QByteArray text = digits.toLatin1();
    const auto *data = reinterpret_cast<const unsigned char *>(text.constData());
    if (ZBarcode_Encode(symbol.get(), data, static_cast<int>(text.size())) >= ZINT_ERROR)
        symbol.reset();
    return symbol;
}

QString foreignPattern(const QString &digits)
{
    const ForeignSymbol symbol = foreign(digits);
    QString modules;
    if (!symbol)
        return modules;
    for (int i = 0; i < symbol->width; ++i)
        modules += (symbol->encoded_data[0][i / 8] >> (i % 8) & 1) != 0 ? u'1' : u'0';
    return modules;
}

} // namespace

TEST(Ean, CheckDigitPadsToTwelveDigits)
{
    const struct
    {
        QString digits;
        QString expected;
    } cases[] = {
        {u"123456"_s, u"0000001234565"_s},
        {u"1234567"_s, u"0000012345670"_s},
        {u""_s, u"0000000000000"_s},
        {u"869000000001"_s, u"8690000000012"_s},
        {u"8690000000019"_s, u"8690000000012"_s}, // the last of 13 digits is replaced
        {u"12345678901234"_s, u""_s},
        {u"12a"_s, u""_s},
        {u"12 "_s, u""_s},
        {u"\u0661\u0662"_s, u""_s},
    };
    for (const auto &c : cases)
        EXPECT_EQ(ean::checkDigit(c.digits), c.expected) << c.digits.toStdString();
}

TEST(Ean, NumbersAreCompletedOrRefused)
{
    const struct
    {
        Symbology symbology;
        QString data;
        QString expected;
    } cases[] = {
        {Symbology::ean13, u"8690000000012"_s, u"8690000000012"_s},
        {Symbology::ean13, u"8690000000013"_s, u""_s},
        {Symbology::ean13, u"869000000001"_s, u"8690000000012"_s},
        {Symbology::ean13, u"12345670"_s, u""_s},
        {Symbology::ean13, u"1234567"_s, u""_s},
        {Symbology::ean13, u""_s, u""_s},
        {Symbology::ean8, u"12345670"_s, u"12345670"_s},
        {Symbology::ean8, u"12345671"_s, u""_s},
        {Symbology::ean8, u"1234567"_s, u"12345670"_s},
        {Symbology::ean8, u"123456"_s, u""_s},
        {Symbology::ean8, u"8690000000012"_s, u""_s},
        {Symbology::ean8, u"ABCDEFGH"_s, u""_s},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(ean::completed(c.symbology, c.data), c.expected) << c.data.toStdString();
        EXPECT_EQ(ean::encode(c.symbology, c.data).has_value(), !c.expected.isEmpty());
    }
}

TEST(Ean, BarsAreThoseOfAnotherEncoder)
{
    std::mt19937 random(20260307);
    std::uniform_int_distribution<qint64> number(0, 999'999'999'999);
    for (int i = 0; i < 3000; ++i) {
        const QString base = QString::number(number(random)).rightJustified(12, u'0');
        const auto symbol = ean::encode(Symbology::ean13, base);
        ASSERT_TRUE(symbol);
        ASSERT_EQ(pattern(*symbol), foreignPattern(base)) << base.toStdString();

        const QString shortBase = base.right(7);
        const auto shortSymbol = ean::encode(Symbology::ean8, shortBase);
        ASSERT_TRUE(shortSymbol);
        ASSERT_EQ(pattern(*shortSymbol), foreignPattern(shortBase)) << shortBase.toStdString();
    }
}

TEST(Ean, NewNumbersEndInTheCheckDigitOfAnotherEncoder)
{
    std::mt19937 random(20260308);
    for (const Symbology symbology : {Symbology::ean8, Symbology::ean13}) {
        qint64 largest = 10;
        // Bases of every length, so that padding is seen as often as full numbers.
        for (int digits = 1; digits <= numbering::baseDigits(symbology); ++digits, largest *= 10) {
            std::uniform_int_distribution<qint64> number(0, largest - 1);
            for (int i = 0; i < 2000; ++i) {
                const qint64 base = number(random);
                const ForeignSymbol symbol = foreign(
                    QString::number(base).rightJustified(numbering::baseDigits(symbology), u'0'));
                ASSERT_TRUE(symbol) << base;
                ASSERT_EQ(numbering::complete(symbology, base),
                          QString::fromLatin1(reinterpret_cast<const char *>(symbol->text)));
            }
        }
    }
}

TEST(Ean, GuardBarsStandAtBothSidesAndTheCentre)
{
    const auto starts = [](const BarSymbol &symbol) {
        QList<int> at;
        for (const Bar &bar : symbol.bars)
            if (bar.guard)
                at += bar.start;
        return at;
    };
    EXPECT_EQ(starts(*ean::encode(Symbology::ean13, u"8690000000012")),
              (QList<int>{0, 2, 46, 48, 92, 94}));
    EXPECT_EQ(starts(*ean::encode(Symbology::ean8, u"12345670")),
              (QList<int>{0, 2, 32, 34, 64, 66}));
}
