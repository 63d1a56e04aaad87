#include "common/amount.h"
#include "labels/layout/label_layout.h"
#include "support/files.h"
#include "support/ini_key_file.h"
#include "support/print_qt.h"
#include "support/test_machine.h"

#include <QDir>
#include <QRectF>

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kFile = u"/ayar/deneme.ayr"_s;
const QString kGolden = sourcePath("/tests/golden/her_anahtar.ayr");

QRectF rectOf(const LabelBox &box)
{
    return {box.left, box.top, box.width, box.height};
}

LabelLayout opened(const QByteArray &bytes)
{
    IniKeyFile keys;
    keys.files.insert(kFile, IniText(bytes));
    return openLayout(keys, kFile);
}

QByteArray saved(const LabelLayout &layout)
{
    IniKeyFile keys;
    EXPECT_TRUE(saveLayout(keys, kFile, layout));
    return keys.files.value(kFile).bytes();
}

TextElement onlyText(const QByteArray &keyLines)
{
    const LabelLayout layout = opened("[tx1]\r\nx=10\r\n" + keyLines);
    return layout.texts.empty() ? TextElement() : layout.texts.front();
}

LabelLayout everyKey()
{
    LabelLayout layout;
    layout.pictures = {{{1.5F, 2, 20.04F, 12.35F}, u"logo çiçek.png"_s}, {{0, 0, 5, 5}, {}}};
    BarcodeElement bars;
    bars.box = {2, 10, 37.3F, 1234.56F};
    bars.font = {u"Arial"_s, 8.25, true, false, true, false};
    bars.colour = 0x00BBAA11;
    bars.option10 = -5;
    bars.option1 = 7;
    bars.sample = u"8690000000012"_s;
    layout.barcodes = {bars};
    TextElement name;
    name.box = {10, 5, 8, 40};
    name.font = {u"Times New Roman"_s, 10, false, true, false, true};
    name.border = true;
    name.colour = 255;
    name.angle = 90;
    name.alignment = u"2"_s;
    name.marked = true;
    name.field = u"Stok Adı"_s;
    name.caption = u"Stok Adı"_s;
    TextElement free;
    free.box = {1, 2, 30, 4};
    free.font = {u"Arial"_s, 9.7501, false, false, false, false};
    free.angle = 22.5;
    free.alignment = u"1"_s;
    free.caption = u"Ağırlık = 5 kg; ıİşŞ"_s;
    layout.texts = {name, free};
    layout.paperWidth = u"210"_s;
    layout.paperHeight = u"297"_s;
    layout.ind1 = u"0"_s;
    layout.orientation = u"1"_s;
    layout.ind3 = u"x"_s;
    layout.paperCode = u"9"_s;
    layout.printer = u"PDF"_s;
    layout.quality = u"-4"_s;
    layout.left = u"4,75"_s;
    layout.top = u"10,7"_s;
    layout.stepX = u"40,6"_s;
    layout.stepY = u"21,2"_s;
    layout.across = u"5"_s;
    layout.down = u"13"_s;
    return layout;
}

} // namespace

TEST(LabelLayoutFile, IsWrittenByteForByte)
{
    EXPECT_EQ(saved(everyKey()).toStdString(), readFile(kGolden).toStdString());
    LabelLayout renamed = everyKey();
    renamed.texts[0].caption = u"Mal"_s;
    EXPECT_TRUE(saved(renamed).contains("bl=Mal\r\nyz=Mal\r\n"));
    EXPECT_EQ(saved({}).toStdString(),
              "\r\n[paper]\r\nx=\r\ny=\r\nind1=\r\nind2=\r\nind3=\r\nksay=\r\n"
              "[print]\r\nprinter=\r\nkalite=\r\n"
              "[label]\r\nsol=\r\nust=\r\nyara=\r\ndara=\r\nyadet=\r\ndadet=\r\n");
}

TEST(LabelLayoutFile, OpensAsItWasSaved)
{
    LabelLayout expected = everyKey();
    // Lengths keep one decimal; a slanted text keeps no position.
    expected.pictures[0].box = {1.5F, 2, 20, 12.4F};
    expected.barcodes[0].box.height = 1234.6F;
    expected.texts[1].box = {0, 0, 30, 4};
    EXPECT_EQ(opened(saved(everyKey())), expected);
    EXPECT_EQ(saved(expected).toStdString(), saved(everyKey()).toStdString());
    EXPECT_EQ(opened(saved({})), LabelLayout());
    EXPECT_EQ(opened({}), LabelLayout());
}

TEST(LabelLayoutFile, TextsAreAnchoredWhereTheyStart)
{
    const struct
    {
        double angle;
        const char *anchor;
        bool kept;
    } cases[] = {
        {0, "posx=10,0\r\nposy=5,0\r\n", true},
        {90, "posx=10,0\r\nposy=45,0\r\n", true},
        {180, "posx=18,0\r\nposy=45,0\r\n", true},
        {270, "posx=18,0\r\nposy=5,0\r\n", true},
        {360, "angl=\r\ntur=0", false},
        {-90, "angl=\r\ntur=0", false},
        {45.5, "hz=45,5\r\nangl=\r\ntur=0", false},
    };
    for (const auto &c : cases) {
        LabelLayout layout;
        TextElement text;
        text.box = {10, 5, 8, 40};
        text.angle = c.angle;
        layout.texts = {text};
        const QByteArray bytes = saved(layout);
        EXPECT_TRUE(bytes.contains(c.anchor)) << c.angle << bytes.constData();
        const TextElement back = opened(bytes).texts.at(0);
        EXPECT_EQ(back.angle, c.angle);
        EXPECT_EQ(back.box, c.kept ? text.box : (LabelBox{0, 0, 8, 40})) << c.angle;
    }
}

TEST(LabelLayoutFile, DamagedNumbersReadAsZero)
{
    const TextElement bad = onlyText("y=1E30\r\nfsize=-3\r\nclr=99999999999\r\nhz=doksan\r\n"
                                     "posx=12a\r\nposy=10001\r\nbrd=2\r\ntur=yes");
    EXPECT_EQ(bad.box, (LabelBox{0, 0, 10, 0}));
    EXPECT_EQ(bad.font.size, 0);
    EXPECT_EQ(bad.colour, 0);
    EXPECT_EQ(bad.angle, 0);
    EXPECT_FALSE(bad.border);
    EXPECT_FALSE(bad.marked);
    const TextElement good = onlyText("y=7,25\r\nfsize=8,25\r\nclr=-2147483633\r\nhz=90,0\r\n"
                                      "posx=-1\r\nposy=1.000,5\r\nbrd=1\r\ntur=1");
    EXPECT_EQ(good.box, (LabelBox{-1, 993.25F, 10, 7.25F}));
    EXPECT_EQ(good.font.size, 8.25);
    EXPECT_EQ(good.colour, -2147483633);
    EXPECT_TRUE(good.border);
    EXPECT_TRUE(good.marked);
    const TextElement dotted = onlyText("y=7.25\r\nfsize=8.25\r\nhz=45\r\nposx=12.5\r\nposy=.5");
    EXPECT_EQ(dotted.box, (LabelBox{0, 0, 10, 7.25F}));
    EXPECT_EQ(dotted.font.size, 8.25);
    EXPECT_EQ(dotted.startLeft, 12.5F); // where printing starts a text of an odd angle
    EXPECT_EQ(dotted.startTop, 0.5F);
    LabelLayout endless;
    endless.pictures = {{{0, 0, HUGE_VALF, NAN}, {}}};
    EXPECT_TRUE(saved(endless).startsWith("\r\n[pc1]\r\nx=0,0\r\ny=0,0\r\n"));
}

TEST(LabelLayoutFile, AFieldMayBringItsAlignment)
{
    const TextElement shifted = onlyText("bl=Barkod<123>3\r\nangl=2");
    EXPECT_EQ(shifted.field, u"Barkod"_s);
    EXPECT_EQ(shifted.alignment, u"3"_s);
}

TEST(LabelLayoutFile, EachKindEndsAtItsFirstGap)
{
    const LabelLayout layout = opened("[pc1]\r\nx=1\r\n[pc2]\r\nx=\r\n[pc3]\r\nx=1\r\n"
                                      "[bar2]\r\nx=1\r\n[TX1]\r\nX=1\r\n[tx2]\r\nx= 0 \r\n"
                                      "[tx03]\r\nx=1\r\n[label]\r\nsol=2\r\n");
    EXPECT_EQ(layout.pictures.size(), 1U);
    EXPECT_EQ(layout.barcodes.size(), 0U);
    EXPECT_EQ(layout.texts.size(), 2U);
    EXPECT_EQ(layout.left, u"2"_s);
}

TEST(LabelLayoutFile, AThousandElementsOfAKindAreRead)
{
    LabelLayout layout;
    layout.pictures.resize(kMostElements + 1);
    layout.barcodes.resize(kMostElements + 1);
    layout.texts.resize(kMostElements + 1);
    const QByteArray bytes = saved(layout);
    EXPECT_TRUE(bytes.contains("[tx1001]"));
    const LabelLayout back = opened(bytes);
    EXPECT_EQ(back.pictures.size(), 1000U);
    EXPECT_EQ(back.barcodes.size(), 1000U);
    EXPECT_EQ(back.texts.size(), 1000U);
}

TEST(LabelLayoutFile, TextsNeverBreakTheirLineNorLeaveTheirFolder)
{
    LabelLayout layout;
    layout.texts.resize(1);
    layout.texts[0].caption = u"iki\r\n[tx2]\nx=5"_s + QChar(u'\0') + u"!"_s;
    layout.printer = u"漢 Yazıcı"_s;
    layout.ind1 = QString(300, u'a');
    const LabelLayout back = opened(saved(layout));
    ASSERT_EQ(back.texts.size(), 1U);
    EXPECT_EQ(back.texts[0].caption, u"iki  [tx2] x=5 !"_s);
    EXPECT_EQ(back.printer, u"? Yazıcı"_s);
    EXPECT_EQ(back.ind1, QString(254, u'a'));

    for (const char *path : {"a.png", "../../a.png", "\\\\sunucu\\pay\\a.png", "C:\\pic/a.png"})
        EXPECT_EQ(opened("[pc1]\nx=1\npic=" + QByteArray(path)).pictures.at(0).file, u"a.png"_s);
    EXPECT_EQ(opened("[pc1]\nx=1\npic=..\\").pictures.at(0).file, QString());
}

TEST(LabelLayoutFile, NamesEndInAyr)
{
    EXPECT_EQ(layoutFileName(u"Raf"_s), u"Raf.ayr"_s);
    EXPECT_EQ(layoutFileName(u"Raf.ayr"_s), u"Raf.ayr"_s);
    EXPECT_EQ(layoutFileName(u"Raf.AYR"_s), u"Raf.AYR.ayr"_s);
    EXPECT_EQ(layoutFileName(u".ayr"_s), u".ayr"_s);
    EXPECT_EQ(layoutFileName(u"Raf.ayr eski"_s), u"Raf.ayr eski.ayr"_s);
}

TEST(LabelLayoutFile, TheDefaultLayoutIsNamedInAFileOfItsOwn)
{
    IniKeyFile keys;
    EXPECT_EQ(defaultLayout(keys, u"/dukkan"_s), QString());
    EXPECT_TRUE(setDefaultLayout(keys, u"/dukkan"_s, u"Dört Yön.ayr"_s));
    EXPECT_EQ(keys.files.value(u"/dukkan/ayar/Default.zev"_s).bytes().toStdString(),
              "[default]\r\nfile=D\xF6rt Y\xF6n.ayr\r\n");
    EXPECT_EQ(defaultLayout(keys, u"/dukkan"_s), u"Dört Yön.ayr"_s);
}

TEST(ShippedLayouts, AreInCanonicalFormAndFitTheirLabels)
{
    const QDir shipped(sourcePath("/demo/ayar"));
    const QStringList names = shipped.entryList({u"*.ayr"_s}, QDir::Files);
    EXPECT_GE(names.size(), 4);
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray bytes = readFile(shipped.filePath(name));
        const LabelLayout layout = opened(bytes);
        EXPECT_EQ(saved(layout).toStdString(), bytes.toStdString());
        EXPECT_EQ(layout.printer, u"PDF"_s);
        const float across = amount::single(layout.across);
        const float down = amount::single(layout.down);
        EXPECT_LE(amount::single(layout.left) + across * amount::single(layout.stepX),
                  amount::single(layout.paperWidth) + 3); // the last step ends in the gap
        EXPECT_LE(amount::single(layout.top) + down * amount::single(layout.stepY),
                  amount::single(layout.paperHeight));

        const QRectF label(0, 0, amount::single(layout.stepX), amount::single(layout.stepY));
        for (const TextElement &text : layout.texts)
            EXPECT_TRUE(label.contains(rectOf(text.box))) << text.caption.toStdString();
        for (const BarcodeElement &bars : layout.barcodes)
            EXPECT_TRUE(label.contains(rectOf(bars.box)));
        for (const PictureElement &picture : layout.pictures) {
            EXPECT_TRUE(label.contains(rectOf(picture.box)));
            EXPECT_TRUE(shipped.exists(u"pic/"_s + picture.file));
        }
    }
    IniKeyFile keys;
    keys.files.insert(u"/ayar/Default.zev"_s,
                      IniText(readFile(shipped.filePath(u"Default.zev"_s))));
    EXPECT_TRUE(names.contains(defaultLayout(keys, QString())));
}
