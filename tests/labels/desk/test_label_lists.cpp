#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "support/print_qt.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QueueRow labels(const QString &name, const QString &count)
{
    return {.number = {},
            .barcode = {},
            .code = {},
            .name = name,
            .unit = {},
            .price = {},
            .count = count,
            .tag = {}};
}

QStringList column(const QAbstractItemModel &model, int column)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += model.index(row, column).data().toString();
    return texts;
}

} // namespace

TEST(PrintQueue, NumbersAndTotalFollowEveryChange)
{
    PrintQueue queue;
    const QAbstractItemModelTester tester(&queue,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy totals(&queue, &PrintQueue::totalChanged);
    const auto last = [&] { return totals.last().first().toLongLong(); };

    queue.append({labels(u"a"_s, u"2"_s), labels(u"b"_s, u"3"_s)});
    queue.append({labels(u"c"_s, u"999999"_s)});
    EXPECT_EQ(column(queue, PrintQueue::number), QStringList({u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(last(), 1'000'004);

    queue.remove(0);
    queue.remove(7);
    EXPECT_EQ(column(queue, PrintQueue::number), QStringList({u"1"_s, u"2"_s}));
    EXPECT_EQ(column(queue, PrintQueue::name), QStringList({u"b"_s, u"c"_s}));
    EXPECT_EQ(last(), 1'000'002);

    EXPECT_TRUE(queue.setCount(0, u" 07 "));
    EXPECT_EQ(column(queue, PrintQueue::count), QStringList({u"7"_s, u"999999"_s}));
    EXPECT_TRUE(queue.setAllCounts(u"3"));
    EXPECT_EQ(last(), 6);
    queue.clear();
    EXPECT_EQ(last(), 0);
}

TEST(StockList, ChangesAreAnnouncedTogether)
{
    StockList list;
    const QAbstractItemModelTester tester(&list,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    list.append(std::vector<StockRow>(10));
    const QSignalSpy changes(&list, &StockList::dataChanged);
    list.setBarcode(3, u"111"_s);
    list.setPrice(8, u"1,00"_s);
    list.setBarcode(5, u"222"_s);
    EXPECT_EQ(changes.count(), 0);
    list.announceChanges();
    list.announceChanges();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), list.index(3, StockList::barcode));
    EXPECT_EQ(changes[0][1].toModelIndex(), list.index(8, StockList::price));
    list.setPrice(0, u"2,00"_s);
    list.clear();
    list.announceChanges(); // nothing is left to announce
    EXPECT_EQ(changes.count(), 1);
}
