#include "labels/desk/number_generation.h"
#include "labels/print/ean.h"
#include "support/cases.h"
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

QString pattern(const zint_symbol &symbol)
{
    QString modules;
    for (int i = 0; i < symbol.width; ++i)
        modules += (symbol.encoded_data[0][i / 8] >> (i % 8) & 1) != 0 ? u'1' : u'0';
    return modules;
}

} // namespace

TEST(Ean, NumbersAreCompletedOrRefused)
{
    for (const Case &c : cases(u"ean"_s)) {
        if (c.value(0) == u"check digit") {
            EXPECT_EQ(ean::checkDigit(c.value(1)), c.value(2)) << c;
            continue;
        }
        const Symbology symbology = c.value(0) == u"EAN-8" ? Symbology::ean8 : Symbology::ean13;
        EXPECT_EQ(ean::completed(symbology, c.value(1)), c.value(2)) << c;
        EXPECT_EQ(ean::encode(symbology, c.value(1)).has_value(), !c.value(2).isEmpty()) << c;
    }
}

TEST(Ean, BarsAndCheckDigitsAreThoseOfAnotherEncoder)
{
    std::mt19937 random(20260307);
    for (const Symbology symbology : {Symbology::ean8, Symbology::ean13}) {
        qint64 largest = 10;
        // Bases of every length, so that padding is seen as often as full numbers.
        for (int digits = 1; digits <= numbering::baseDigits(symbology); ++digits, largest *= 10) {
            std::uniform_int_distribution<qint64> number(0, largest - 1);
            for (int i = 0; i < 500; ++i) {
                const qint64 base = number(random);
                const QString text =
                    QString::number(base).rightJustified(numbering::baseDigits(symbology), u'0');
                const ForeignSymbol expected = foreign(text);
                ASSERT_TRUE(expected) << base;
                ASSERT_EQ(numbering::complete(symbology, base),
                          QString::fromLatin1(reinterpret_cast<const char *>(expected->text)));
                ASSERT_EQ(pattern(*ean::encode(symbology, text)), pattern(*expected)) << base;
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
