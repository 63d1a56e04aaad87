#include "labels/designer/design_checks.h"
#include "labels/designer/designs.h"
#include "labels/designer/readable_bars.h"
#include "labels/print/print_desk.h"
#include "labels/print/scannability.h"
#include "support/print_qt.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DesignOutput, AnyBoxCanBeMadeReadable)
{
    const QSizeF label(66, 36);
    for (const QString &number : {u"8690000000012"_s, u"86900010"_s})
        for (const double dpi : kUsualResolutions)
            for (const LabelBox &box : {LabelBox{2, 2, 5, 5}, LabelBox{2, 2, 38.5F, 15},
                                        LabelBox{30, 30, 20, 5}, LabelBox{1, 1, 64, 10}}) {
                BarcodeElement bars = barsAt(box);
                bars.box = readableBox(bars, number, dpi, label);
                const auto symbol = ean::encode(ean::bySize(number, ean::Symbology::ean13), number);
                const LabelBox &now = bars.box;
                const auto faults = barFaults(
                    {QRectF(static_cast<double>(now.left), static_cast<double>(now.top),
                            static_cast<double>(now.width), static_cast<double>(now.height)),
                     *symbol, bars.font, 0},
                    label, DeviceFonts({dpi, dpi}));
                EXPECT_TRUE(faults.empty()) << dpi << ' ' << box << " -> " << now;
            }
}

TEST(DesignOutput, WhatWouldComeOutWrongIsSaidOfItsElement)
{
    Design design = textsAt({{2, 2, 40, 6}});
    design.layout.texts[0].field = u"Stok Adı"_s;
    design.layout.barcodes = {barsAt({2, 9, 45, 24})};
    design.layout.stepX = u"70"_s;
    design.layout.stepY = u"37"_s;
    design.layout.across = design.layout.down = u"2"_s;
    const LabelRow row = PrintDesk::row(u"Ayran 1 L"_s, 1);
    const struct
    {
        std::function<void(Design &, LabelRow &)> change;
        LabelRef ref;
        QString start; ///< of what is said; "" for nothing
    } cases[] = {
        {[](auto &, auto &) {}, {}, u""_s},
        {[](auto &, auto &r) { r.barcode = u"8690000000013"_s; },
         {kBars, 0},
         u"barkodun son hanesi yanlış"_s},
        {[](auto &, auto &r) { r.barcode = u"869"_s; }, {kBars, 0}, u"barkod 8 ya da 13"_s},
        {[](auto &d, auto &) { d.layout.barcodes[0].box.width = 20; },
         {kBars, 0},
         u"çizgileri bu yazıcıda çok ince"_s},
        {[](auto &d, auto &) { d.layout.texts[0].box.height = 0; },
         {kText, 0},
         u"Ögenin eni ya da boyu sıfır"_s},
        {[](auto &d, auto &) { d.layout.texts[0].font.name = u"Yokyazı"_s; },
         {kText, 0},
         u"“Yokyazı” yazı tipi bu bilgisayarda yok"_s},
        {[](auto &d, auto &) { d.layout.texts[0].field = u"STKMENSEI"_s; },
         {kText, 0},
         u"“STKMENSEI” adlı alan yok"_s},
        {[](auto &d, auto &) {
             d.layout.pictures = {{{50, 2, 8, 8}, {}}};
         },
         {kPicture, 0},
         u"Resim seçilmemiş"_s},
        {[](auto &d, auto &) { d.layout.left = u"70"_s; }, // the second column
         {kBars, 0},
         u"barkod yazıcının basamadığı kenara taşıyor: sağda"_s},
    };
    for (const auto &c : cases) {
        Design changed = design;
        LabelRow shown = row;
        c.change(changed, shown);
        const auto notices = DesignChecks().look(changed, shown, {{300, 300}, {150, 90}, {}, {}});
        const auto said = [&](const DesignNotice &notice) {
            return notice.ref == c.ref && notice.text.startsWith(c.start);
        };
        EXPECT_EQ(c.start.isEmpty(), notices.empty()) << c.start.toStdString();
        EXPECT_TRUE(c.start.isEmpty() || std::any_of(notices.begin(), notices.end(), said))
            << c.start.toStdString();
    }
}
