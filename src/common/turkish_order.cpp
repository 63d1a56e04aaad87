#include "common/turkish_order.h"

#include "common/turkish.h"

#include <QString>

#include <array>

namespace turkish_order {

namespace {

constexpr std::u16string_view kAlphabet = u"abcçdefgğhıijklmnoöpqrsştuüvwxyz";

constexpr Weight kDigits = 0x200000;
constexpr Weight kLetters = 0x300000;
constexpr Weight kOtherLetters = 0x400000;

constexpr char32_t kDamaged = 0xFFFD;

constexpr Weight place(Weight letter, Weight accent = 0)
{
    return letter << 8 | accent;
}

Weight compute(char32_t c)
{
    const char32_t small = turkish::lower(c);
    if (small <= 0xFFFF) {
        const std::size_t at = kAlphabet.find(static_cast<char16_t>(small));
        if (at != std::u16string_view::npos)
            return place(kLetters + static_cast<Weight>(at));
    }
    const QString parts = QChar::decomposition(small);
    if (parts.size() == 2 && parts.at(1).unicode() >= 0x300 && parts.at(1).unicode() < 0x370)
        return compute(parts.at(0).unicode()) + (parts.at(1).unicode() - 0x300U + 1U);
    if (c >= U'0' && c <= U'9')
        return place(kDigits + c);
    return place(QChar::isLetterOrNumber(small) ? kOtherLetters + small : small);
}

using Table = std::array<Weight, 0x250>; // all of Latin

Table makeTable()
{
    Table table{};
    for (char32_t c = 0; c < table.size(); ++c)
        table[c] = compute(c);
    return table;
}

const Table kTable = makeTable();

Weight weight(char32_t c)
{
    return c < kTable.size() ? kTable[c] : compute(c);
}

/// Number of bytes that follow a first byte; -1 for a byte that starts no character.
int following(unsigned char first)
{
    if (first >= 0xC2 && first < 0xE0)
        return 1;
    if (first >= 0xE0 && first < 0xF0)
        return 2;
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

char32_t decode(std::string_view &text)
{
    const auto first = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    const int more = following(first);
    if (more < 0 || text.size() < static_cast<std::size_t>(more))
        return kDamaged;
    char32_t c = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[static_cast<std::size_t>(i)]);
        if ((byte & 0xC0U) != 0x80U)
            return kDamaged;
        c = c << 6 | (byte & 0x3FU);
    }
    text.remove_prefix(static_cast<std::size_t>(more));
    return c <= 0x10FFFF ? c : kDamaged;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

Weight next(std::string_view &text)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first >= 0x80)
        return weight(decode(text));
    text.remove_prefix(1);
    return kTable[first];
}

int compare(std::string_view a, std::string_view b)
{
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    int accents = 0;
    while (!a.empty() && !b.empty()) {
        const Weight left = next(a);
        const Weight right = next(b);
        if (left == right)
            continue;
        const int order = left < right ? -1 : 1;
        if (left >> 8 != right >> 8)
            return order;
        if (accents == 0)
            accents = order;
    }
    if (!a.empty() || !b.empty())
        return a.empty() ? -1 : 1;
    return accents;
}

void fold(std::string_view text, std::vector<Weight> &weights)
{
    weights.clear();
    while (!text.empty())
        weights.push_back(next(text));
}

Weight blank()
{
    return kTable[U' '];
}

} // namespace turkish_order
