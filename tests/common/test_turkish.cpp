#include "common/turkish.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Turkish, CaseKeepsTheTwoIs)
{
    EXPECT_EQ(turkish::upper(u"ılık içecek"), u"ILIK İÇECEK"_s);
    EXPECT_EQ(turkish::lower(u"ISPARTA İZMİR"), u"ısparta izmir"_s);
}

TEST(Turkish, CodesCompareAsTheHostComparesThem)
{
    EXPECT_TRUE(turkish::sameCode(u"cikolata İ", u"CİKOLATA i  "));
    EXPECT_FALSE(turkish::sameCode(u"i", u"I"));
    EXPECT_TRUE(turkish::sameCode(u"A", u"a  "));
    EXPECT_FALSE(turkish::sameCode(u"A", u" A"));
    EXPECT_FALSE(turkish::sameCode(u"A", u"AB"));
}

TEST(Turkish, YesAndNoAreReadInEveryForm)
{
    for (const QString &yes : {u"True"_s, u"TRUE"_s, u"true"_s, u"-1"_s, u"1"_s, u" 2 "_s, u"0,5"_s,
                               u"Doğru"_s, u"DOĞRU"_s})
        EXPECT_TRUE(turkish::truth(yes)) << yes.toStdString();
    for (const QString &no : {u"False"_s, u"FALSE"_s, u"0"_s, u""_s, u"0,0"_s, u"yes"_s,
                              u"Trueish"_s, u"nan"_s, u"Yanlış"_s})
        EXPECT_FALSE(turkish::truth(no)) << no.toStdString();
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
