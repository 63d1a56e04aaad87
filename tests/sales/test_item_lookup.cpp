#include "sales/item_lookup.h"
#include "sales/sale_settings.h"
#include "sales/till_shop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Outcome = LookupResult::Outcome;

namespace {

const QString kOn = u"/shop/sndon.sun"_s;
const QString kOff = u"/shop/sndoff.sun"_s;

struct Lookup : testing::Test
{
    Lookup()
    {
        shop.add({u"869001"_s, u"S1"_s, u"Çay"_s, 1234.5, {10, 10, 0}, 1});
        shop.add({u"869002"_s, u"S2"_s, u"Şeker"_s, 20.0});
    }

    LookupResult scan(const QString &code) { return lookup.listebarkodkontrol(list, code); }
    LookupResult type(const QString &code) { return lookup.listestokkodkontrol(list, code); }

    TillShop shop;
    Settings settings = oku(shop.program.files());
    ScanSounds sounds{shop.program.sounds, shop.program.directory(), settings};
    ItemLookup lookup{shop.program, sounds, shop.program.kdvtab, settings};
    SaleList list;
};

} // namespace

TEST_F(Lookup, AScannedBarcodeBecomesAPricedLine)
{
    const LookupResult result = scan(u"869001"_s);
    EXPECT_EQ(result.outcome, Outcome::added);
    EXPECT_EQ(result.row, 0);
    const QStringList expected = {u"869001"_s,   u"S1"_s, u"Çay"_s,      u"18"_s,     u"ADET"_s,
                                  u"1.234,50"_s, u"1"_s,  u"1.234,50"_s, u"234,55"_s, u"999,95"_s};
    const auto &cells = list.line(0).cells;
    EXPECT_EQ(QStringList(cells.begin(), cells.end()), expected);
    EXPECT_EQ(shop.host.statements,
              QStringList({u"select * from STKBARKOD where STKBARKOD='869001'"_s,
                           u"select * from STKKART where STKKOD='S1'"_s,
                           u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s}));
    EXPECT_EQ(shop.sounds.played, QStringList{kOn});
}

TEST_F(Lookup, ATypedStockCodeTakesItsFirstBarcode)
{
    EXPECT_EQ(type(u"S2"_s).outcome, Outcome::added);
    EXPECT_EQ(list.line(0)[SaleColumn::barcode], u"869002"_s);
    EXPECT_EQ(list.line(0)[SaleColumn::stockCode], u"S2"_s);
    EXPECT_EQ(shop.host.statements,
              QStringList({u"select * from STKKART where STKKOD='S2'"_s,
                           u"select * from STKBARKOD where STKBARSTKKOD='S2'"_s,
                           u"select * from STKFIYAT where STKFIYSTKKOD='S2'"_s}));
    list.clear();
    shop.host.answers.remove(host_queries::barcodesOf(u"S2"_s));
    type(u"S2"_s);
    EXPECT_EQ(list.line(0)[SaleColumn::barcode], u"S2"_s); // the code as it was entered
}

TEST_F(Lookup, TheSameCodeAgainAddsOneToItsFirstLine)
{
    scan(u"869001"_s);
    scan(u"869002"_s);
    shop.host.statements.clear();
    EXPECT_EQ(scan(u"869001"_s).outcome, Outcome::merged);
    EXPECT_EQ(shop.host.statements.size(), 1);
    EXPECT_EQ(type(u"s1"_s).row, 0); // the host takes s1 and S1 for the same code
    EXPECT_EQ(shop.host.statements.size(), 1);
    EXPECT_EQ(list.size(), 2);
    EXPECT_EQ(list.line(0)[SaleColumn::quantity], u"3"_s);
    EXPECT_EQ(list.line(0)[SaleColumn::amount], u"3.703,50"_s);
    EXPECT_EQ(list.line(0)[SaleColumn::net], u"2.999,83"_s);
}

TEST_F(Lookup, UnknownCodesAddNothingAndAreHeard)
{
    EXPECT_EQ(scan(u"111"_s).outcome, Outcome::notFound);
    EXPECT_EQ(type(u"YOK"_s).outcome, Outcome::notFound);
    EXPECT_EQ(scan(QString(500, u'7')).outcome, Outcome::notFound);
    shop.host.answers.remove(host_queries::card(u"S2"_s));
    EXPECT_EQ(scan(u"869002"_s).outcome, Outcome::notFound);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(shop.sounds.played, QStringList(4, kOff));
}

TEST_F(Lookup, SoundsFollowTheirSwitches)
{
    settings.ses.bulses = false;
    settings.ses.bulmases = false;
    scan(u"869001"_s);
    scan(u"869001"_s);
    scan(u"111"_s);
    EXPECT_TRUE(shop.sounds.played.isEmpty());
}

TEST_F(Lookup, TheVatClassIsAPositionInTheTable)
{
    struct Case
    {
        QVariant vatClass;
        QString rate;
    };
    for (const auto &[vatClass, rate] : std::vector<Case>{
             {1, u"18"_s},
             {2, u"8"_s},
             {0, u""_s},
             {100, u"1"_s},
             {101, u""_s},
             {-1, u""_s},
             {QVariant(u"yüksek"_s), u""_s},
             {QVariant(u"2"_s), u"8"_s},
             {QVariant(), u"20"_s}, // no class at all: the default rate of the settings
         }) {
        list.clear();
        shop.add({u"869003"_s, u"S3"_s, u"Tuz"_s, 5.0, {}, vatClass});
        EXPECT_EQ(scan(u"869003"_s).outcome, Outcome::added);
        EXPECT_EQ(list.line(0)[SaleColumn::vatRate], rate) << vatClass.toString().toStdString();
        EXPECT_EQ(list.line(0)[SaleColumn::net], u"5,00"_s);
    }
}

TEST_F(Lookup, AnItemWithoutAPriceIsNotSold)
{
    for (const QVariant &price : {QVariant(), QVariant(u""_s), QVariant(u"on"_s)}) {
        shop.add({u"869003"_s, u"S3"_s, u"Tuz"_s, price});
        EXPECT_EQ(scan(u"869003"_s).outcome, Outcome::unpriced);
    }
    settings.stok.fiyatip = u"3"_s;
    const LookupResult result = type(u"S1"_s);
    EXPECT_EQ(result.outcome, Outcome::unpriced);
    EXPECT_TRUE(result.remark.contains(u"3 numaralı fiyat"_s));
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(Lookup, LabelsOfScalesAreTakenApartAfterThePlainLookup)
{
    shop.add({u"2700012"_s, u"PEY"_s, u"Peynir"_s, 249.9});
    shop.add({u"9"_s, u"00034"_s, u"Zeytin"_s, 33.33, {10, 0, 0}});
    shop.add(
        {u"2100099000007"_s, u"S9"_s, u"Etiketli"_s, 5.0}); // the ledger knows the whole number
    const QString file = shop.program.path(u"terazi.zev");
    for (const auto &[section, key, value] :
         std::vector<std::array<QString, 3>>{{u"terazi"_s, u"onekler"_s, u"27, 21,28"_s},
                                             {u"21"_s, u"tur"_s, u"Fiyat"_s},
                                             {u"21"_s, u"kod"_s, u"STOK"_s},
                                             {u"28"_s, u"urun"_s, u"6"_s}})
        shop.keys.write(section, key, value, file);
    lookup.setScales(readScaleRules(shop.keys, file));
    struct Case
    {
        QString code;
        double packs;
        QString quantity, amount, net;
    };
    for (const Case &c : std::vector<Case>{
             {u"2700012004505"_s, 1, u"0,45"_s, u"112,46"_s, u"112,46"_s},
             {u"2700012004505"_s, 2, u"0,9"_s, u"224,91"_s, u"224,91"_s},
             {u"2100034012340"_s, 1, u"0,37"_s, u"12,34"_s, u"11,11"_s}, // 12,34 lira, not 12,33
             {u"2100099000007"_s, 1, u"1"_s, u"5,00"_s, u"5,00"_s},
             {u"2700012004506"_s, 1, {}, {}, {}}, // check digit
             {u"2700012000002"_s, 1, {}, {}, {}}, // weighs nothing
             {u"2700099004502"_s, 1, {}, {}, {}}, // not in the ledger
             {u"2800012004502"_s, 1, {}, {}, {}}, // its rule has 13 digits without the check digit
             {u"270001200450"_s, 1, {}, {}, {}}}) {
        list.clear();
        const LookupResult result = lookup.listebarkodkontrol(list, c.code, c.packs);
        ASSERT_EQ(list.size(), c.quantity.isEmpty() ? 0 : 1) << c.code.toStdString();
        if (list.isEmpty()) {
            EXPECT_TRUE(result.remark.contains(c.code));
            continue;
        }
        EXPECT_EQ(list.line(0)[SaleColumn::barcode], c.code);
        EXPECT_EQ(list.line(0)[SaleColumn::quantity], c.quantity);
        EXPECT_EQ(list.line(0)[SaleColumn::amount], c.amount);
        EXPECT_EQ(list.line(0)[SaleColumn::net], c.net);
    }
}

TEST_F(Lookup, FreeItemsAndDepositsAreSoldAndAFullDiscountIsRemarked)
{
    shop.add({u"1"_s, u"P"_s, u"Poşet"_s, 0.0});
    EXPECT_EQ(scan(u"1"_s).remark, QString());
    shop.add({u"3"_s, u"D"_s, u"Depozito"_s, -7.5});
    EXPECT_EQ(scan(u"3"_s).remark, QString());
    for (const SaleColumn filled : {SaleColumn::price, SaleColumn::amount, SaleColumn::net})
        EXPECT_EQ(list.line(1)[filled], u"-7,50"_s);
    shop.add({u"2"_s, u"Q"_s, u"Deneme"_s, 10.0, {100, 0, 0}});
    const LookupResult result = scan(u"2"_s);
    EXPECT_EQ(result.outcome, Outcome::added);
    EXPECT_FALSE(result.remark.isEmpty());
}
