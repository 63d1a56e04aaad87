#include "common/amount.h"
#include "common/column_widths.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <QHash>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Amount, NumbersAndTheirTexts)
{
    const auto read = [](const auto &number) {
        return number ? QString::number(*number, 'g', 15) : u"none"_s;
    };
    using Rule = std::function<QString(const Case &)>;
    const auto ofDouble = [](QString (*text)(double)) -> Rule {
        return [text](const Case &c) { return text(c.number(1)); };
    };
    const auto ofSingle = [](QString (*text)(float)) -> Rule {
        return [text](const Case &c) { return text(static_cast<float>(c.number(1))); };
    };
    const QHash<QString, Rule> rules = {
        {u"money"_s, ofDouble(amount::money)},
        {u"single money"_s, ofSingle(amount::money)},
        {u"length"_s, ofDouble(amount::length)},
        {u"single length"_s, ofSingle(amount::length)},
        {u"points"_s, ofDouble(amount::points)},
        {u"plain"_s, ofDouble(amount::plain)},
        {u"single plain"_s, ofSingle(amount::plain)},
        {u"whole"_s, [](const Case &c) { return amount::whole(c.value(1).toLongLong()); }},
        {u"parse"_s, [&](const Case &c) { return read(amount::parse(c.value(1))); }},
        {u"single"_s, [](const Case &c) { return QString::number(amount::single(c.value(1))); }},
        {u"integer"_s,
         [](const Case &c) { return QString::number(amount::integer(c.value(1), -4, 100)); }},
        {u"any integer"_s,
         [](const Case &c) { return QString::number(amount::integer(c.value(1))); }},
        {u"labels"_s, [&](const Case &c) { return read(amount::labelCount(c.value(1))); }},
    };
    for (const Case &c : cases(u"amounts"_s))
        EXPECT_EQ(rules[c.value(0)](c), c.value(2)) << c;
}

TEST(ColumnWidths, OnlySensibleWidthsAreTaken)
{
    EXPECT_EQ(column_widths::fromText(column_widths::toText({10, 4000, 120}), 3),
              QList<int>({10, 4000, 120}));
    EXPECT_EQ(column_widths::fromText(u"10-80,5-120"_s, 3), QList<int>({10, 81, 120}));
    for (const QString &bad :
         {u""_s, u"100-100"_s, u"100-100-100-100"_s, u"100-9-100"_s, u"100--100"_s,
          u"100-4001-100"_s, u"100-99999999999-100"_s, u"-100-100-100"_s, u"a-b-c"_s})
        EXPECT_TRUE(column_widths::fromText(bad, 3).isEmpty()) << bad.toStdString();
}
