#include "platform/host/host_values.h"
#include "platform/host/like_pattern.h"

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
    // Symbols before digits, ı before i, accents only after all letters, other alphabets last.
    const std::vector<std::string> ascending = {
        "-5",    "0",   "10", "9",    "9 volt pil", "cafe",  "café",  "cam",    "çam",
        "dam",   "gül", "ğ",  "hala", "hâlâ",       "halat", "ISLAK", "ızgara", "incir",
        "islak", "oz",  "öz", "p",    "q",          "r",     "süt",   "sütlaç", "şut",
        "uz",    "üz",  "v",  "w",    "x",          "y",     "z",     "Ωmega"};
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(sign(turkish_order::compare(ascending[i], ascending[j])),
                      sign(static_cast<int>(i) - static_cast<int>(j)))
                << ascending[i] << " ? " << ascending[j];

    const std::vector<std::pair<std::string, std::string>> alike = {
        {"", ""},         {"ekmek", "EKMEK"}, {"İNCİR", "incir"},
        {"ILIK", "ılık"}, {"KÂĞIT", "kâğıt"}, {"şeker çöğür", "ŞEKER ÇÖĞÜR"},
        {"café", "CAFÉ"}, {"a\xC3", "a\xC3"}, {"süt", "süt   "},
        {"   ", ""}, // blanks at the end do not count
    };
    for (const auto &[a, b] : alike) {
        EXPECT_EQ(turkish_order::compare(a, b), 0) << a << " ? " << b;
        EXPECT_EQ(turkish_order::compare(b, a), 0) << b << " ? " << a;
    }

    const std::vector<std::pair<std::string, std::string>> rising = {
        {" süt", "süt"}, {"\xFF", "a"}, {"\xF0\x9F\x98\x80", "a"}}; // damaged text as it comes
    for (const auto &[a, b] : rising) {
        EXPECT_LT(turkish_order::compare(a, b), 0) << a << " ? " << b;
        EXPECT_GT(turkish_order::compare(b, a), 0) << b << " ? " << a;
    }
}

TEST(LikePattern, MatchesAsTheServerDoes)
{
    struct Case
    {
        std::string text;
        std::vector<std::string> like;
        std::vector<std::string> unlike;
    };
    const std::vector<Case> cases = {
        {"", {"%", "%%"}, {"_"}},
        {"süt", {"süt", "SÜT", "%"}, {"sü", "süt "}},
        {"süt  ", {"%süt"}, {}}, // blanks at the end of the text are passed over, of a pattern not
        {"TAM YAĞLI SÜT", {"%yağlı%"}, {}},
        {"tam yağlı süt", {"%YAĞLI%"}, {}},
        {"İÇLİ KÖFTE", {"%içli%"}, {"%ıçlı%"}}, // ı is not i
        {"ISPANAK", {"ı%"}, {"i%"}},
        {"şeker", {}, {"seker"}},
        {"hâlâ", {}, {"hala"}},
        {"aab", {"%ab"}, {}},
        {"abcabd", {"%abd"}, {}},
        {"mississippi", {"%iss%ip%"}, {"%iss%iss%iss%"}},
        {"çay", {"_ay", "__y", "[a-d]ay"}, {"____", "[abc]ay", "[^ç]ay"}}, // c, ç, d
        {"ÇAY", {"[^a-c]ay"}, {}},
        {"5", {"[0-9]"}, {}},
        {"%10", {"[%]10"}, {}},
        {"x10", {}, {"[%]10"}},
        {"a_b", {"a[_]b"}, {}},
        {"axb", {}, {"a[_]b"}},
        {"a[b", {"a[[]b"}, {"a[b"}}, // a set nobody closes
        {"ab", {}, {"a[b"}},
        {"a]b", {"a]b"}, {}},
        {"a-", {"a[b-]"}, {}},
        {"^", {"[^]"}, {}},
        {"a", {}, {"[]"}},
        {"12,5 kg", {"%12,5%"}, {}},
    };
    for (const Case &c : cases) {
        for (const std::string &pattern : c.like)
            EXPECT_TRUE(LikePattern(pattern).matches(c.text)) << c.text << " like " << pattern;
        for (const std::string &pattern : c.unlike)
            EXPECT_FALSE(LikePattern(pattern).matches(c.text)) << c.text << " like " << pattern;
    }
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
    };
    for (const Case &c : cases)
        EXPECT_EQ(host_values::parseDate(c.text), c.expected) << c.text;
    for (const char *none : {"29.02.2026", "31.11.2026", "12.13.2026", "01.01.1752", "1.11.26",
                             "01.11.2026x", "01.11.", "01-", "yarın", "-1.1.2026", "99999999999"})
        EXPECT_FALSE(host_values::parseDate(none)) << none;

    EXPECT_LT(host_values::compareDates("30.11.2026", "1.12.2026"), 0);
    EXPECT_EQ(host_values::compareDates("01.11.2026", "2026-11-01"), 0);
    EXPECT_LT(host_values::compareDates("31.12.9999", "yarın"), 0);
}

} // namespace
