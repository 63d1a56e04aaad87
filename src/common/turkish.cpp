#include "common/turkish.h"

#include "common/amount.h"

#include <algorithm>
#include <array>

namespace turkish {

namespace {

/// Bytes 0x80 to 0x9F of code page 1254.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x008E, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x009E, 0x0178};

/// The six bytes from 0xA0 up in which code page 1254 differs from Latin 1.
struct Letter
{
    unsigned char byte;
    char16_t letter;
};
constexpr std::array<Letter, 6> kTurkishLetters = {
    {{0xD0, u'Ğ'}, {0xDD, u'İ'}, {0xDE, u'Ş'}, {0xF0, u'ğ'}, {0xFD, u'ı'}, {0xFE, u'ş'}}};

constexpr std::array<char16_t, 256> makeTable()
{
    std::array<char16_t, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char16_t>(i);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        table[0x80 + i] = kHighControls[i];
    for (const Letter &l : kTurkishLetters)
        table[l.byte] = l.letter;
    return table;
}

constexpr std::array<char16_t, 256> kTable = makeTable();

QStringView withoutTrailingBlanks(QStringView text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

char toByte(char16_t c)
{
    if (c < kTable.size() && kTable[c] == c)
        return static_cast<char>(c);
    for (std::size_t i = 0x80; i < kTable.size(); ++i)
        if (kTable[i] == c)
            return static_cast<char>(i);
    return '?';
}

} // namespace

QString upper(QStringView text)
{
    QString result = text.toString();
    result.replace(u'i', u'İ').replace(u'ı', u'I');
    return result.toUpper();
}

QString lower(QStringView text)
{
    QString result = text.toString();
    result.replace(u'I', u'ı').replace(u'İ', u'i');
    return result.toLower();
}

char32_t upper(char32_t c)
{
    if (c == U'i')
        return U'İ';
    return c == U'ı' ? U'I' : QChar::toUpper(c);
}

char32_t lower(char32_t c)
{
    if (c == U'I')
        return U'ı';
    return c == U'İ' ? U'i' : QChar::toLower(c);
}

bool sameCode(QStringView left, QStringView right)
{
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](QChar a, QChar b) {
               return a == b || upper(char32_t{a.unicode()}) == upper(char32_t{b.unicode()});
           });
}

bool truth(QStringView text)
{
    const QString word = lower(text.trimmed());
    return word == u"true" || word == u"doğru" || amount::parse(word).value_or(0) != 0;
}

QString truthText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QByteArray toCodePage1254(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        bytes += toByte(text.at(i).unicode());
    }
    return bytes;
}

QString fromCodePage1254(QByteArrayView bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += QChar(kTable[static_cast<unsigned char>(byte)]);
    return text;
}

} // namespace turkish
