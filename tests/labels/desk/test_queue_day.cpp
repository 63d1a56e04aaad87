#include "fakes/label_shop.h"
#include "labels/desk/csv_text.h"
#include "labels/desk/queue_file.h"
#include "support/files.h"
#include "support/print_qt.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A desk whose three stocks are queued, and what it sends to the printer.
struct PrintingShop : LabelShop
{
    PrintingShop()
    {
        desk.loader().listele();
        desk.ektm();
        host.statements.clear();
        QObject::connect(&desk.printing(), &LabelPrinting::printWanted,
                         [this](const PrintRequest &request) { requests.push_back(request); });
    }
    void wait(int minutes) { machine.clock.moment = machine.clock.moment.addSecs(60 * minutes); }
    void newPrice(double price)
    {
        answer(u"select * from STKFIYAT where STKFIYSTKKOD='S1'"_s, prices({{1, price, 0, 0, 0}}));
    }
    QString asked() const
    {
        return machine.prompt.shown.empty() ? QString() : machine.prompt.shown.back().text;
    }

    std::vector<PrintRequest> requests;
};

/// A shop with a folder of its own, and one more desk as after a restart.
struct KeptShop
{
    QTemporaryDir folder;
    FakeMachine machine{folder.path()};
    RecordingHost &host = machine.openCompany();
};

QueueRow row(const QString &name, QueueState state = QueueState::bulk)
{
    QueueRow row;
    row.barcode = u"8690000000012"_s;
    row.code = u"A;\"1\""_s;
    row.name = name;
    row.unitName = u" ADET "_s;
    row.price = u"1.250,50"_s;
    row.unit = 2;
    row.count = 7;
    row.state = state;
    row.number = 1;
    return row;
}

} // namespace

TEST(LabelPrinting, PricesThatWaitedAreReadAnewAndToldWhenTheyChanged)
{
    PrintingShop shop;
    shop.wait(10);
    shop.desk.yzdtum();
    EXPECT_TRUE(shop.host.statements.isEmpty()); // ten minutes are not too long
    EXPECT_EQ(shop.requests.size(), 1U);

    shop.wait(1);
    shop.desk.yzdsec({2});
    EXPECT_EQ(shop.host.statements,
              QStringList(u"select * from STKFIYAT where STKFIYSTKKOD='S3'"_s));
    EXPECT_EQ(shop.requests.size(), 2U);
    EXPECT_TRUE(shop.machine.prompt.shown.empty()); // the price is the same

    shop.newPrice(12.5);
    shop.desk.queue().markPrinted({0, 1});
    shop.desk.yzdtum(); // the third row was read a moment ago
    EXPECT_EQ(shop.host.statements.size(), 3);
    EXPECT_TRUE(shop.asked().contains(u"Süt 1 L: 10,00 → 12,50"_s)) << shop.asked().toStdString();
    EXPECT_FALSE(shop.asked().contains(u"Çay"_s));
    EXPECT_EQ(shop.requests.size(), 2U); // answered with no
    EXPECT_EQ(shop.desk.queue().at(0).price, u"12,50"_s);
    EXPECT_EQ(shop.desk.queue().printedPlaces(), QList<int>{1}); // the other's label is wrong now
    shop.desk.yzdtum();
    shop.desk.printing().runEnded(true);
    EXPECT_EQ(shop.desk.queue().printedPlaces().size(), 3);
    EXPECT_EQ(shop.requests.back().rows.at(0).price, u"12,50"_s);

    // Without the server the user decides. (The clock was an hour ahead.)
    shop.wait(-60);
    shop.host.failOn = [](const QString &) { return std::optional(HostError::kStatement); };
    shop.desk.yzdtum();
    EXPECT_EQ(shop.requests.size(), 3U);
    shop.machine.prompt.answers = {Answer::yes};
    shop.desk.yzdtum();
    EXPECT_EQ(shop.requests.size(), 4U);
    EXPECT_FALSE(shop.desk.isBusy());
}

TEST(LabelPrinting, WhatWasPrintedIsMarkedTakenOutAndPrintedAgain)
{
    PrintingShop shop;
    shop.desk.yzdsec({0, 2});
    shop.desk.printing().runEnded(false); // stopped
    EXPECT_TRUE(shop.desk.queue().printedPlaces().isEmpty());
    EXPECT_FALSE(shop.desk.printing().canRepeat());
    shop.desk.yzdsec({0, 2});
    shop.desk.printing().runEnded(true);
    EXPECT_EQ(shop.desk.queue().printedPlaces(), QList<int>({0, 2}));
    shop.desk.setCounts({2}, u"5"_s); // it is not printed as it stands now
    shop.desk.removePrinted();
    EXPECT_EQ(shop.queued(), QStringList({u"S2 1<123>0"_s, u"S3 1<123>0"_s}));

    shop.desk.clearQueue();
    shop.desk.repeatPrinting();
    ASSERT_EQ(shop.requests.size(), 3U);
    EXPECT_EQ(shop.requests[2].rows.size(), 2U);
    EXPECT_EQ(shop.requests[2].rows[1].stockCode, u"S3"_s);
    EXPECT_EQ(shop.requests[2].rows[1].queueRow, -1);
}

TEST(ShelfScan, EveryScanCountsAndANumberSetsTheCount)
{
    LabelShop shop;
    ShelfScan &scan = shop.desk.scan();
    const QSignalSpy refused(&scan, &ShelfScan::refused);
    shop.machine.db.setRow(u"ses"_s, {{u"bulses"_s, u"1"_s}, {u"bulmases"_s, u"1"_s}});
    scan.begin();
    scan.enter(u"5"_s); // nothing was scanned yet
    EXPECT_EQ(refused.count(), 1);
    for (const QString &text : {u"111"_s, u""_s, u"  "_s})
        scan.enter(text); // three digits are a count
    EXPECT_EQ(refused.count(), 2);
    shop.answer(u"select * from STKBARKOD where STKBARKOD='8690111'"_s,
                LabelShop::barcodes({LabelShop::barcode(u"111"_s, 1)}));
    shop.answer(u"select * from STKBARKOD where STKBARKOD='8690221'"_s,
                LabelShop::barcodes({LabelShop::barcode(u"221"_s, 2)}));
    scan.enter(u" 8690111 "_s);
    scan.enter(u"8690221"_s);
    scan.enter(u"8690111"_s);
    EXPECT_EQ(shop.queued(), QStringList({u"S1 1<123>a0"_s, u"S1 2<123>a0"_s}));
    EXPECT_EQ(shop.desk.queue().at(0).count, 2);
    EXPECT_EQ(shop.desk.queue().at(1).price, u"81,00"_s);
    EXPECT_EQ(shop.desk.queue().at(1).unitText(), u"ADET (BIRIM2)"_s);
    scan.enter(u"40"_s);
    EXPECT_EQ(shop.desk.queue().at(0).count, 40);
    EXPECT_EQ(shop.desk.queue().total(), 41);
    scan.enter(u"8690000"_s);
    EXPECT_EQ(refused.last(), QVariantList({u"Bulunamadı: 8690000"_s, u"8690000"_s}));
    EXPECT_EQ(scan.missed(), QStringList(u"8690000"_s));
    EXPECT_EQ(shop.machine.sounds.played.last(), u"/shop/sndoff.sun"_s);
    scan.enter(u"3"_s); // not meant for the one before
    EXPECT_EQ(refused.count(), 4);
    scan.enter(u"8690111"_s);
    EXPECT_EQ(shop.desk.queue().at(0).count, 41);
    EXPECT_EQ(shop.machine.sounds.played.last(), u"/shop/sndon.sun"_s);
    scan.enter(u"0"_s);
    EXPECT_EQ(shop.desk.queue().size(), 1);
    EXPECT_TRUE(shop.desk.canUndo());
    shop.machine.db.setRow(u"ses"_s, {{u"bulses"_s, u"0"_s}, {u"bulmases"_s, u"0"_s}});
    scan.begin(); // the settings switch the sounds of the till and these
    const auto heard = shop.machine.sounds.played.size();
    scan.enter(u"8690000"_s);
    scan.enter(u"8690221"_s);
    EXPECT_EQ(shop.machine.sounds.played.size(), heard);

    // What was printed is done with; a server that is away costs one scan and no more.
    shop.desk.queue().markPrinted({0});
    scan.enter(u"8690221"_s);
    EXPECT_EQ(shop.desk.queue().size(), 2);
    shop.host.open = false;
    scan.enter(u"8690221"_s);
    EXPECT_TRUE(refused.last().first().toString().startsWith(u"8690221 okunamadı"_s));
    EXPECT_EQ(shop.desk.queue().total(), 3);
    EXPECT_TRUE(shop.machine.prompt.shown.empty());
}

TEST(QueueFile, KeepsEveryMemberAndSurvivesDamage)
{
    std::vector<QueueRow> rows = {row(u"Şeker; \"5 kg\"\nçuval"_s),
                                  row(u"Un"_s, QueueState::fresh)};
    rows[1].printed = true;
    rows[1].priceRead = QDateTime(QDate(2026, 3, 7), QTime(14, 5)).toMSecsSinceEpoch();
    const QByteArray bytes = queue_file::text(rows, {1, 0}).toUtf8();
    queue_file::Content read = queue_file::read(bytes);
    for (QueueRow &one : read.rows)
        one.number = 1;
    EXPECT_EQ(read, (queue_file::Content{rows, {1, 0}, 0}));
    // Lines of another hand, and one without the place it was added at.
    read = queue_file::read(bytes + "a;b\nx;y;z;;;0;1<123>0;;\n;;;;;3;1<123>z;;\n;;;;;3;1<123>0;;\n"
                                    ";;;;;3;1<123>0;;;9\n;;;;;3;1<123>0;;;9\n");
    EXPECT_EQ(read.rows.size(), 5U);
    EXPECT_EQ(read.damaged, 3);
    EXPECT_TRUE(read.added.empty());
    EXPECT_TRUE(queue_file::read({}).rows.empty());
}

TEST(QueueStore, TheQueueOutlivesTheProgramAndOthersHaveNames)
{
    KeptShop shop;
    {
        LabelDesk desk(shop.machine.program);
        desk.keepQueue();
        desk.queue().append({row(u"Süt"_s), row(u"Un"_s, QueueState::fresh)});
        for (const QString &bad : {u""_s, u"a/b"_s, u"..\\x"_s, u".x"_s})
            EXPECT_FALSE(desk.saveQueue(bad)) << bad.toStdString();
        EXPECT_TRUE(desk.saveQueue(u"Pazartesi çarşı"_s));
        EXPECT_FALSE(desk.printing().canRepeat());
        desk.yzdsec({0});
        desk.printing().runEnded(true);
        desk.queue().take({0});
        desk.queue().append({row(u"Bal"_s)});
        desk.sortQueue(PrintQueue::name);
    }
    LabelDesk desk(shop.machine.program);
    desk.keepQueue();
    ASSERT_EQ(desk.printing().last().size(), 1U); // printed, and no longer in the queue
    EXPECT_EQ(desk.printing().last().front().name, u"Süt"_s);
    ASSERT_EQ(desk.queue().size(), 2);
    EXPECT_EQ(desk.queue().at(0).name, u"Bal"_s); // sorted as it was left,
    desk.sortQueue(PrintQueue::number);
    EXPECT_EQ(desk.queue().at(0).name, u"Un"_s); // and still known as it was added
    EXPECT_TRUE(desk.numbers().isOn());          // its number is still to be saved
    desk.openQueue(u"Pazartesi çarşı"_s);
    EXPECT_EQ(desk.queue().at(1).name, u"Bal"_s);
    shop.machine.prompt.answers = {Answer::yes};
    desk.clearQueue();
    desk.openQueue(u"Pazartesi çarşı"_s);
    EXPECT_EQ(desk.queue().at(0).name, u"Süt"_s);
    EXPECT_EQ(desk.store().names(), QStringList(u"Pazartesi çarşı"_s));
    EXPECT_FALSE(desk.saveQueue(u"PAZARTESİ çarşı"_s)); // there is one: answered with no
    shop.machine.prompt.answers = {Answer::yes};
    desk.deleteQueue(u"Pazartesi çarşı"_s);
    EXPECT_TRUE(desk.store().names().isEmpty());
}

TEST(CountFile, ReadsWhatTerminalsAndSpreadsheetsWrite)
{
    const QByteArray files[] = {
        "\xEF\xBB\xBF"
        "Barkod;Adet\r\n111;3\r\n\r\nS3;1\r\n",
        "111\t3\nS3\n", "\"111\",\"3,00\"\nS3,1.0",
        "111;3;bo\xFE\nS3;1;\xE7\n", // code page 1254, more columns
    };
    for (const QByteArray &file : files) {
        const auto content = count_file::read(file);
        ASSERT_EQ(content.lines.size(), 2U) << file.toStdString();
        EXPECT_EQ(content.lines[0].code + QString::number(content.lines[0].count), u"1113"_s);
        EXPECT_EQ(content.lines[1].code + QString::number(content.lines[1].count), u"S31"_s);
        EXPECT_TRUE(content.problems.empty());
    }
    const auto content = count_file::read("111;3.000\n;5\n111;0\n111;iki\n111;-1\nS3;2\n");
    EXPECT_EQ(content.lines, std::vector<count_file::Line>({{6, u"S3"_s, 2}}));
    EXPECT_EQ(count_file::report(content.problems).split(u'\n').value(1), u"2. satır: kod yok"_s);
    EXPECT_EQ(content.problems.size(), 5U);
}

TEST(CountImport, CodesBecomeQueueRowsAndTheRestIsToldByLine)
{
    KeptShop base;
    LabelShop shop;
    shop.answer(u"select * from STKKART where STKKOD='S3'"_s,
                LabelShop::cards({{u"S3"_s, u"Çay 500 g"_s, u"ADET"_s, QVariant()}}));
    const QString path = base.folder.filePath(u"sayim.txt"_s);
    writeFile(path, "221;4\nYOK;1\n111;2\nS3;5\n111;3\nYOK;1\n");
    QString problems;
    QObject::connect(&shop.desk, &LabelDesk::importReported,
                     [&](const QString &text) { problems = text; });
    shop.desk.importCounts(path);
    QCoreApplication::processEvents();
    QStringList rows;
    for (const QueueRow &row : shop.desk.queue().rows())
        rows += u"%1 %2 %3 %4"_s.arg(row.code).arg(row.unit).arg(row.count).arg(row.price);
    EXPECT_EQ(rows, QStringList({u"S1 2 4 81,00"_s, u"S1 1 5 10,00"_s, u"S3 1 5 1.250,50"_s}));
    EXPECT_EQ(problems, u"2. satır: YOK: bulunamadı\n6. satır: YOK: bulunamadı"_s);
    shop.desk.importCounts(base.folder.filePath(u"yok.txt"_s));
    writeFile(path, "\n");
    shop.desk.importCounts(path);
    EXPECT_EQ(shop.machine.prompt.shown.size(), 2U);
}
