#include "common/settings_database.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/price_change_request.h"
#include "labels/print/print_run.h"
#include "shell/login_session.h"
#include "shell/settings_session.h"
#include "support/files.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

PrintRequest wholeQueue(const PrintQueue &queue)
{
    return {.rows = labelsOf(queue.placed(queue.everyPlace()))};
}

class DemoShop : public testing::Test
{
protected:
    void SetUp() override { shop.open(); }

    RealShop shop;
};

} // namespace

TEST_F(DemoShop, OpensOnBothDatabasesWithItsVatClasses)
{
    ASSERT_TRUE(Program::isOpen(shop.program.anabag));
    ASSERT_TRUE(Program::isOpen(shop.program.bag));
    // Record order, not number order: class n is the n-th record.
    EXPECT_EQ(shop.program.kdvtab[1][1], u"5"_s);
    EXPECT_EQ(shop.program.kdvtab[3][2], u"20"_s);
    LoginSession login(shop.program);
    bool accepted = false;
    QObject::connect(&login, &LoginSession::accepted, [&] { accepted = true; });
    login.load();
    login.enter(QString());
    EXPECT_TRUE(accepted) << "the password of a new shop is empty";
}

TEST_F(DemoShop, SearchesAsATurkishServerDoesAndPricesEveryRow)
{
    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    const auto found = [&](const QString &text) {
        desk.loader().stkcinsibul(text);
        return desk.stocks().size();
    };
    const int lower = found(u"süt"_s);
    EXPECT_GT(lower, 20);
    EXPECT_EQ(found(u"SÜT"_s), lower);
    EXPECT_EQ(found(u"ılık"_s), found(u"ILIK"_s));
    EXPECT_EQ(found(u"çikolata"_s), found(u"ÇİKOLATA"_s));
    EXPECT_NE(found(u"PİRİNÇ"_s), 0);

    // A quote breaks the statement: the user is told, list and queue stay.
    desk.ektm();
    const int listed = desk.stocks().size();
    desk.loader().stkcinsibul(u"Ali'nin"_s);
    EXPECT_EQ(shop.prompt.shown.size(), 1U);
    EXPECT_EQ(desk.stocks().size(), listed);
    EXPECT_EQ(desk.queue().size(), listed);
}

TEST_F(DemoShop, PriceChangesAreFoundByDaysAndByTheTimeOfEveryDay)
{
    const QDate today = shop.clock.now().date();
    const QDate first = today.addDays(-40); // the days of two months, in either order as texts
    QStringList expected;
    RecordSet cards = shop.program.company().execute(u"select * from STKKART"_s);
    for (; !cards.eof(); cards.moveNext()) {
        const QDate day = cards.value(u"STKSYFTARIHI").toDate();
        const QString time = cards.text(u"STKSYFSAATI");
        if (first <= day && day <= today && u"08:29:00"_s <= time && time <= u"12:00:00"_s)
            expected += cards.text(u"STKKOD");
    }
    EXPECT_GT(expected.size(), 20);

    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    PriceChangeRequest request(shop.program);
    QObject::connect(&request, &PriceChangeRequest::requested, &desk.loader(),
                     &StockLoader::fiyatdegisbul);
    request.send({first, today, QTime(8, 30), QTime(12, 0)});
    QStringList found;
    for (const StockRow &row : desk.stocks().rows())
        found += row.code;
    EXPECT_EQ(found, expected);
}

TEST_F(DemoShop, SettingsAreSavedAndReadBack)
{
    SettingsSession first(shop.program);
    first.load();
    EXPECT_EQ(first.values().stok.depoadi, u"MAĞAZA"_s);
    EXPECT_EQ(first.lists().customers.code(0), u"120.00.001"_s);
    Settings v = first.values();
    v.liste.title = u"Çarşı Şubesi"_s;
    v.stok.br1fytadi = u"TOPTAN"_s;
    v.stok.br1fyt = u"3"_s;
    v.login.sifre = u"o'nun"_s; // breaks its own statement only
    first.serverkaydet(v);

    SettingsSession second(shop.program);
    second.load();
    EXPECT_EQ(second.values().liste.title, u"Çarşı Şubesi"_s);
    EXPECT_EQ(second.values().stok.br1fyt, u"3"_s);
    EXPECT_EQ(second.values().login.sifre, QString());
    EXPECT_TRUE(shop.prompt.shown.empty());
}

TEST_F(DemoShop, EveryShippedLayoutPrintsTheQueue)
{
    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    desk.loader().stkkodbul(u"GID.001"_s);
    desk.ektm();
    PrintRun run(shop.program);
    const QStringList layouts = run.layouts().names();
    EXPECT_GE(layouts.size(), 4);
    int printed = 0;
    QObject::connect(&run, &PrintRun::problemsFound, [&run] { run.answer(true); });
    QObject::connect(&run, &PrintRun::finished, [&printed](bool done) { printed += done ? 1 : 0; });
    for (const QString &layout : layouts)
        run.yazzzz(wholeQueue(desk.queue()), layout);
    EXPECT_EQ(printed, layouts.size());
    EXPECT_EQ(QDir(shop.program.path(u"cikti")).entryList(QDir::Files).size(), layouts.size());
}

TEST(DamagedFiles, NoFileOfTheFolderCanEndTheProgram)
{
    const QByteArray garbage = "SQLite format 3" + QByteArray(5000, '\xE7');
    for (const QString &name :
         {u"data.dbs"_s, u"DEMOANA.yerel"_s, u"DEMOSIRKET.yerel"_s, u"ayar/Raf 3x8.ayr"_s,
          u"ayar/Default.zev"_s, u"Ayar.zev"_s, u"ayar/pic/tezgah.png"_s}) {
        RealShop shop;
        writeFile(shop.program.path(name), garbage);
        shop.open();
        LabelDesk desk(shop.program);
        desk.loadPriceNumbers();
        desk.loader().stkkodbul(u"GID.001"_s);
        desk.ektm();
        PrintRun run(shop.program);
        run.start(wholeQueue(desk.queue()));
        SettingsSession session(shop.program);
        session.load();
        session.serverkaydet(session.values());
        if (name == u"DEMOSIRKET.yerel"_s) {
            EXPECT_FALSE(shop.prompt.shown.empty()) << "a lost search is told";
        }
        if (name == u"data.dbs"_s) {
            EXPECT_EQ(session.values().liste.listrenk.row, 0xFFFFFF) << "design values stay";
        }
    }
}

TEST(FirstRun, LeavesWhatIsThereAndMakesTheRest)
{
    RealShop shop;
    const QString layout = shop.program.path(u"ayar/Raf 3x8.ayr");
    writeFile(layout, "[label]\r\nsol=1\r\n");
    QFile::remove(shop.program.path(u"ayar/Rulo 58x40.ayr"));
    copyShippedFiles(shop.folder.path());
    EXPECT_EQ(QFileInfo(layout).size(), 16);
    EXPECT_TRUE(QFile::exists(shop.program.path(u"ayar/Rulo 58x40.ayr")));
    EXPECT_TRUE(QFileInfo(shop.program.path(u"ayar/Rulo 58x40.ayr")).isWritable());
    createSettingsFile(shop.program.files()); // there already: untouched
    EXPECT_FALSE(QFile::exists(shop.program.path(u"data.dbs.yeni")));

    // A folder that cannot be written is told in words.
    writeFile(shop.program.path(u"dosya"), "x");
    EXPECT_THROW(copyShippedFiles(shop.program.path(u"dosya")), std::runtime_error);
}
