#include "platform/host_values.h"
#include "platform/like_pattern.h"

#include <QString>

#include <chrono>
#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

namespace {

int sign(int value)
{
    return value < 0 ? -1 : static_cast<int>(value > 0);
}

TEST(TurkishOrder, ComparesAsTheServerDoes)
{
    struct Case
    {
        std::string a;
        std::string b;
        int expected;
    };
    const std::vector<Case> cases = {
        {"", "", 0},
        {"ekmek", "EKMEK", 0},
        {"İNCİR", "incir", 0},
        {"ILIK", "ılık", 0},
        {"şeker çöğür", "ŞEKER ÇÖĞÜR", 0},
        {"ISLAK", "islak", -1}, // ı and i are two letters, ı first
        {"ızgara", "incir", -1},
        {"cam", "çam", -1},
        {"çam", "dam", -1},
        {"gül", "ğ", -1},
        {"oz", "öz", -1},
        {"süt", "şut", -1},
        {"uz", "üz", -1},
        {"p", "q", -1},
        {"q", "r", -1},
        {"v", "w", -1},
        {"w", "x", -1},
        {"x", "y", -1},
        {"z", "Ωmega", -1}, // other alphabets last
        {"9 volt pil", "a", -1},
        {"-5", "0", -1}, // symbols before digits
        {"10", "9", -1},
        {"süt", "süt   ", 0}, // blanks at the end do not count
        {"   ", "", 0},
        {" süt", "süt", -1},
        {"süt", "sütlaç", -1},
        {"hala", "hâlâ", -1},  // accents count,
        {"hâlâ", "halat", -1}, // but only after all letters
        {"KÂĞIT", "kâğıt", 0},
        {"café", "CAFÉ", 0},
        {"cafe", "café", -1},
        {"\xFF", "a", -1}, // damaged text is taken as it comes
        {"a\xC3", "a\xC3", 0},
        {"\xF0\x9F\x98\x80", "a", -1},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(sign(turkish_order::compare(c.a, c.b)), c.expected) << c.a << " ? " << c.b;
        EXPECT_EQ(sign(turkish_order::compare(c.b, c.a)), -c.expected) << c.b << " ? " << c.a;
    }
}

TEST(LikePattern, MatchesAsTheServerDoes)
{
    struct Case
    {
        std::string text;
        std::string pattern;
        bool expected;
    };
    const std::vector<Case> cases = {
        {"", "%", true},
        {"", "%%", true},
        {"", "_", false},
        {"süt", "süt", true},
        {"süt", "SÜT", true},
        {"süt", "sü", false},
        {"süt", "%", true},
        {"TAM YAĞLI SÜT", "%yağlı%", true},
        {"tam yağlı süt", "%YAĞLI%", true},
        {"İÇLİ KÖFTE", "%içli%", true},
        {"İÇLİ KÖFTE", "%ıçlı%", false}, // ı is not i
        {"ISPANAK", "ı%", true},
        {"ISPANAK", "i%", false},
        {"şeker", "seker", false},
        {"hâlâ", "hala", false},
        {"süt  ", "%süt", true}, // blanks at the end of the text are passed over,
        {"süt", "süt ", false},  // those of the pattern are not
        {"aab", "%ab", true},
        {"abcabd", "%abd", true},
        {"mississippi", "%iss%ip%", true},
        {"mississippi", "%iss%iss%iss%", false},
        {"çay", "_ay", true},
        {"çay", "__y", true},
        {"çay", "____", false},
        {"çay", "[a-d]ay", true}, // ç stands between c and d
        {"çay", "[abc]ay", false},
        {"ÇAY", "[^a-c]ay", true},
        {"çay", "[^ç]ay", false},
        {"5", "[0-9]", true},
        {"%10", "[%]10", true},
        {"x10", "[%]10", false},
        {"a_b", "a[_]b", true},
        {"axb", "a[_]b", false},
        {"a[b", "a[[]b", true},
        {"a]b", "a]b", true},
        {"a[b", "a[b", false}, // a set nobody closes
        {"ab", "a[b", false},
        {"a-", "a[b-]", true},
        {"^", "[^]", true},
        {"a", "[]", false},
        {"12,5 kg", "%12,5%", true},
    };
    for (const Case &c : cases)
        EXPECT_EQ(LikePattern(c.pattern).matches(c.text), c.expected)
            << c.text << " like " << c.pattern;
    EXPECT_TRUE(LikePattern("10!%", U'!' << 8).matches("10%"));
    EXPECT_FALSE(LikePattern("10!%", U'!' << 8).matches("100"));
}

TEST(LikePattern, HostilePatternsEndSoon)
{
    std::string pattern;
    for (int i = 0; i < 2000; ++i)
        pattern += "%a";
    LikePattern many(pattern + "b");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(many.matches(std::string(4000, 'a')));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(HostDates, ReadsAndOrdersThemAsDates)
{
    struct Case
    {
        std::string text;
        QDate expected;
    };
    const std::vector<Case> cases = {
        {"01.11.2026", QDate(2026, 11, 1)},
        {"1.2.2026", QDate(2026, 2, 1)},
        {"31/12/2025", QDate(2025, 12, 31)},
        {"2026-11-01", QDate(2026, 11, 1)},
        {"20261101", QDate(2026, 11, 1)},
        {" 01.11.2026 ", QDate(2026, 11, 1)},
        {"01.11.2026 23:59:00", QDate(2026, 11, 1)},
        {"2026-11-01T08:00:00.000", QDate(2026, 11, 1)},
        {"29.02.2024", QDate(2024, 2, 29)},
        {"", QDate(1900, 1, 1)},
        {"29.02.2026", {}},
        {"31.11.2026", {}},
        {"12.13.2026", {}},
        {"01.01.1752", {}},
        {"1.11.26", {}},
        {"01.11.2026x", {}},
        {"01.11.", {}},
        {"01-", {}},
        {"yarın", {}},
        {"-1.1.2026", {}},
        {"99999999999", {}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(host_values::parseDate(c.text).value_or(QDate()), c.expected) << c.text;

    EXPECT_LT(host_values::compareDates("30.11.2026", "1.12.2026"), 0);
    EXPECT_EQ(host_values::compareDates("01.11.2026", "2026-11-01"), 0);
    EXPECT_LT(host_values::compareDates("31.12.9999", "yarın"), 0);
}

} // namespace
