#include "labels/desk/print_queue.h"
#include "labels/desk/stock_list.h"
#include "support/print_qt.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QueueRow labels(const QString &name, int count)
{
    QueueRow row;
    row.name = name;
    row.count = count;
    return row;
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

    queue.append({labels(u"a"_s, 2), labels(u"b"_s, 3)});
    queue.append({labels(u"c"_s, 999'999)});
    EXPECT_EQ(column(queue, PrintQueue::number), QStringList({u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(last(), 1'000'004);

    const auto taken = queue.take({0});
    EXPECT_EQ(column(queue, PrintQueue::number), QStringList({u"1"_s, u"2"_s}));
    EXPECT_EQ(column(queue, PrintQueue::name), QStringList({u"b"_s, u"c"_s}));
    EXPECT_EQ(last(), 1'000'002);

    queue.setCounts({0}, 7);
    EXPECT_EQ(column(queue, PrintQueue::count), QStringList({u"7"_s, u"999999"_s}));
    queue.putBack({0}, taken);
    EXPECT_EQ(column(queue, PrintQueue::name), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(column(queue, PrintQueue::number), QStringList({u"1"_s, u"2"_s, u"3"_s}));
    queue.setCounts(queue.everyPlace(), 3);
    EXPECT_EQ(last(), 9);

    // Rows from here and there, put back among others.
    const auto ends = queue.take({0, 2});
    queue.append({labels(u"d"_s, 1)});
    queue.putBack({0, 2}, ends);
    EXPECT_EQ(column(queue, PrintQueue::name), QStringList({u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    queue.clear();
    EXPECT_EQ(last(), 0);
}

TEST(PrintQueue, IsSortedFoundInAndPutBackAsAdded)
{
    PrintQueue queue;
    const QAbstractItemModelTester tester(&queue,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    queue.append({labels(u"Şeker"_s, 10), labels(u"çay"_s, 9), labels(u"Ispanak"_s, 1),
                  labels(u"ıhlamur"_s, 2), labels(u"İncir"_s, 3), labels(u"Cips"_s, 100)});
    const QPersistentModelIndex tea = queue.index(1, 0);
    const QStringList asAdded = column(queue, PrintQueue::name);
    queue.sortNext(PrintQueue::name);
    EXPECT_EQ(column(queue, PrintQueue::name), QStringList({u"Cips"_s, u"çay"_s, u"ıhlamur"_s,
                                                            u"Ispanak"_s, u"İncir"_s, u"Şeker"_s}));
    EXPECT_EQ(column(queue, PrintQueue::number).first(), u"1"_s);
    queue.sortNext(PrintQueue::count);
    queue.sortNext(PrintQueue::count);
    EXPECT_EQ(column(queue, PrintQueue::count),
              QStringList({u"100"_s, u"10"_s, u"9"_s, u"3"_s, u"2"_s, u"1"_s}));
    EXPECT_TRUE(queue.headerData(PrintQueue::count, Qt::Horizontal).toString().endsWith(u"▼"_s));
    EXPECT_EQ(tea.row(), 2);

    // Rows that come and go while it is sorted keep their places among those added.
    queue.append({labels(u"Un"_s, 1)});
    const auto tooMany = queue.take({0});
    queue.sort(-1, Qt::AscendingOrder);
    EXPECT_EQ(column(queue, PrintQueue::name), asAdded.mid(0, 5) + QStringList(u"Un"_s));
    EXPECT_EQ(tea.row(), 1);

    EXPECT_EQ(queue.find(u"IHLAMUR"_s, 0, 1), 3);
    EXPECT_EQ(queue.find(u"n"_s, 3, 1), 4);
    EXPECT_EQ(queue.find(u"n"_s, 3, -1), 2);
    EXPECT_EQ(queue.find(u"şek"_s, 1, 1), 0);
    EXPECT_EQ(queue.find(u"yok"_s, 0, 1), -1);
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
