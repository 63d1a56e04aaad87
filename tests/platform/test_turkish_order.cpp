#include "platform/host/host_values.h"
#include "platform/host/like_pattern.h"
#include "support/cases.h"

#include <chrono>
#include <gtest/gtest.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {

int sign(int value)
{
    return value < 0 ? -1 : static_cast<int>(value > 0);
}

TEST(TurkishOrder, ComparesAsTheServerDoes)
{
    const std::vector<Case> ascending = cases(u"turkish_order"_s);
    for (std::size_t i = 0; i < ascending.size(); ++i)
        for (std::size_t j = 0; j < ascending.size(); ++j)
            EXPECT_EQ(sign(turkish_order::compare(ascending[i].utf8(0), ascending[j].utf8(0))),
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
    EXPECT_TRUE(LikePattern("%").matches(""));
    EXPECT_FALSE(LikePattern("_").matches(""));
    for (const Case &c : cases(u"like"_s))
        for (const int column : {1, 2})
            for (const QString &pattern : c.value(column).split(u" / "_s, Qt::SkipEmptyParts))
                EXPECT_EQ(LikePattern(pattern.toStdString()).matches(c.utf8(0)), column == 1)
                    << c << ": " << pattern.toStdString();
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
    EXPECT_EQ(host_values::parseDate(""), QDate(1900, 1, 1));
    for (const Case &c : cases(u"host_dates"_s))
        EXPECT_EQ(host_values::parseDate(c.utf8(0)).value_or(QDate()),
                  QDate::fromString(c.value(1), Qt::ISODate))
            << c;
    EXPECT_LT(host_values::compareDates("30.11.2026", "1.12.2026"), 0);
    EXPECT_EQ(host_values::compareDates("01.11.2026", "2026-11-01"), 0);
    EXPECT_LT(host_values::compareDates("31.12.9999", "1 yarın"), 0);
}

} // namespace
