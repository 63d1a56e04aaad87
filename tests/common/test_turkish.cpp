#include "common/turkish.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Turkish, CaseKeepsTheTwoIs)
{
    EXPECT_EQ(turkish::upper(u"ılık içecek"), u"ILIK İÇECEK"_s);
    EXPECT_EQ(turkish::lower(u"ISPARTA İZMİR"), u"ısparta izmir"_s);
}

TEST(Turkish, CodePageKeepsEveryByteAndLosesOnlyForeignLetters)
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray one(1, static_cast<char>(byte));
        EXPECT_EQ(turkish::toCodePage1254(turkish::fromCodePage1254(one)), one) << byte;
    }
    EXPECT_EQ(turkish::toCodePage1254(u"ĞİŞğışÖÇÜ€"),
              QByteArray("\xD0\xDD\xDE\xF0\xFD\xFE\xD6\xC7\xDC\x80"));
    EXPECT_EQ(turkish::toCodePage1254(u"ÐÝ漢😀"), QByteArray("????"));
}
