#include "sales/text_receipt.h"

#include "paper/millimetres.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kPoints = 9.0;
constexpr double kEdge = 2.0;        ///< mm left free above, below and at the right
constexpr double kLeastRoom = 20.0;  ///< mm
constexpr double kLetterWidth = 0.6; ///< of a wide letter, in type sizes

qsizetype lettersIn(double millimetres)
{
    const double letter = kLetterWidth * kPoints * kMmPerInch / kPointsPerInch;
    return std::max<qsizetype>(static_cast<qsizetype>(millimetres / letter), 8);
}

/// A paragraph in lines of at most so many letters; a longer word is cut.
QStringList wrapped(const QString &paragraph, qsizetype letters)
{
    QStringList lines;
    QString line;
    for (QString word : paragraph.split(u' ')) {
        if (!line.isEmpty() && line.size() + 1 + word.size() > letters) {
            lines += line;
            line.clear();
        }
        for (; word.size() > letters; word = word.sliced(letters))
            lines += word.first(letters);
        line += line.isEmpty() ? word : u' ' + word;
    }
    return lines << line;
}

} // namespace

ReceiptPage drawText(const ReceiptLayout &layout, const QString &text)
{
    ReceiptPage page;
    page.width = layout.paperWidth();
    const double left = layout.leftMargin;
    const double room = std::max(page.width - left - kEdge, kLeastRoom);
    double y = kEdge;
    for (const QString &paragraph : text.split(u'\n')) {
        for (const QString &line : wrapped(paragraph, lettersIn(room))) {
            if (!line.isEmpty())
                page.texts.push_back({.box = {left, y, room, lineHeight(kPoints)},
                                      .font = {.name = {}, .size = kPoints},
                                      .text = line,
                                      .shrink = true});
            y += lineHeight(kPoints);
        }
    }
    page.length = y + kEdge;
    return page;
}
