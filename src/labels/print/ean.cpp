#include "labels/print/ean.h"

#include "common/digits.h"
#include "common/ean_check_digit.h"

#include <array>

using namespace Qt::StringLiterals;

namespace ean {

namespace {

// Widths of space, bar, space, bar of each digit in number set A. Set C inverts the colours, set B
// is set C read backwards.
constexpr std::array<std::array<int, 4>, 10> kWidths = {{{3, 2, 1, 1},
                                                         {2, 2, 2, 1},
                                                         {2, 1, 2, 2},
                                                         {1, 4, 1, 1},
                                                         {1, 1, 3, 2},
                                                         {1, 2, 3, 1},
                                                         {1, 1, 1, 4},
                                                         {1, 3, 1, 2},
                                                         {1, 2, 1, 3},
                                                         {3, 1, 1, 2}}};

// The first digit of an EAN-13 number has no bars of its own: it shows in which of the next six
// digits are drawn from set B (bit 5 = the leftmost of them).
constexpr std::array<unsigned, 10> kSetB = {0b000000, 0b001011, 0b001101, 0b001110, 0b010011,
                                            0b011001, 0b011100, 0b010101, 0b010110, 0b011010};

int digitAt(QStringView digits, qsizetype at)
{
    return digits.at(at).unicode() - u'0';
}

constexpr std::size_t kEan13Bars = 3 * 2 + 12 * 2; ///< guards and digits

/// Collects alternating spaces and bars from left to right.
class BarWriter
{
public:
    BarWriter() { m_bars.reserve(kEan13Bars); }

    void space(int width) { m_at += width; }
    void bar(int width, bool guard)
    {
        m_bars.push_back({m_at, width, guard});
        m_at += width;
    }
    void sideGuard()
    {
        bar(1, true);
        space(1);
        bar(1, true);
    }
    void centreGuard()
    {
        space(1);
        bar(1, true);
        space(1);
        bar(1, true);
        space(1);
    }
    void leftDigit(int digit, bool setB)
    {
        auto widths = kWidths[static_cast<std::size_t>(digit)];
        if (setB)
            std::reverse(widths.begin(), widths.end());
        for (std::size_t i = 0; i < widths.size(); i += 2) {
            space(widths[i]);
            bar(widths[i + 1], false);
        }
    }
    void rightDigit(int digit)
    {
        const auto &widths = kWidths[static_cast<std::size_t>(digit)];
        for (std::size_t i = 0; i < widths.size(); i += 2) {
            bar(widths[i], false);
            space(widths[i + 1]);
        }
    }
    std::vector<Bar> take() { return std::move(m_bars); }

private:
    std::vector<Bar> m_bars;
    int m_at = 0;
};

constexpr int kEan13Modules = 11 + 95 + 7; ///< with its quiet zones

BarSymbol ean8Symbol(const QString &digits, std::vector<Bar> bars)
{
    return {.name = u"EAN-8"_s,
            .digits = digits,
            .modules = 67,
            .quietLeft = 7,
            .quietRight = 7,
            .longModules = kEan13Modules,
            .barHeight = 18.23 / kFullModule,
            .bars = std::move(bars),
            .groups = {{digits.first(4), 3, 28}, {digits.sliced(4), 36, 28}}};
}

/// The first digit stands in the quiet zone.
BarSymbol ean13Symbol(const QString &digits, std::vector<Bar> bars)
{
    return {.name = u"EAN-13"_s,
            .digits = digits,
            .modules = 95,
            .quietLeft = 11,
            .quietRight = 7,
            .barHeight = 22.85 / kFullModule,
            .bars = std::move(bars),
            .groups = {{digits.first(1), -10, 8},
                       {digits.sliced(1, 6), 3, 42},
                       {digits.sliced(7), 50, 42}}};
}

} // namespace

QString checkDigit(QStringView digits)
{
    if (digits.size() > 13 || !areDigits(digits))
        return {};
    const QString base = digits.toString().rightJustified(12, u'0').left(12);
    return base + QString::number(eanCheckDigit(base));
}

QString completed(Symbology symbology, QStringView data)
{
    const qsizetype size = symbology == Symbology::ean8 ? 8 : 13;
    if ((data.size() != size && data.size() != size - 1) || !areDigits(data))
        return {};
    const QChar check(u'0' + eanCheckDigit(data.first(size - 1)));
    if (data.size() < size)
        return data.toString() + check;
    return data.back() == check ? data.toString() : QString();
}

std::optional<BarSymbol> encode(Symbology symbology, QStringView data)
{
    const QString digits = completed(symbology, data);
    if (digits.isEmpty())
        return {};

    // EAN-13 draws 12 digits, six to each side of the centre; EAN-8 draws all of its eight.
    const qsizetype first = symbology == Symbology::ean8 ? 0 : 1;
    const qsizetype half = (digits.size() - first) / 2;
    const unsigned setB =
        symbology == Symbology::ean8 ? 0 : kSetB[static_cast<std::size_t>(digitAt(digits, 0))];

    BarWriter writer;
    writer.sideGuard();
    for (qsizetype i = 0; i < half; ++i)
        writer.leftDigit(digitAt(digits, first + i), (setB >> (half - 1 - i) & 1U) != 0);
    writer.centreGuard();
    for (qsizetype i = 0; i < half; ++i)
        writer.rightDigit(digitAt(digits, first + half + i));
    writer.sideGuard();
    return symbology == Symbology::ean8 ? ean8Symbol(digits, writer.take())
                                        : ean13Symbol(digits, writer.take());
}

Symbology bySize(QStringView data, Symbology previous)
{
    switch (data.size()) {
    case 8:
        return Symbology::ean8;
    case 13:
        return Symbology::ean13;
    default:
        return previous;
    }
}

} // namespace ean
