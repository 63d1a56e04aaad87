#include "platform/demo/demo_shop.h"
#include "platform/demo/demo_text.h"
#include "platform/host/embedded_engine.h"
#include "platform/host/embedded_file.h"
#include "platform/scratch.h"
#include "support/cases.h"
#include "support/print_qt.h"
#include "support/test_machine.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kText = sourcePath("/tests/platform/demo");
const QDate kToday(2026, 11, 20);

std::string faultOf(const QByteArray &schema, const QByteArray &rows)
{
    try {
        std::vector<demo::Table> tables = demo::readSchema(schema, u"sema.txt"_s);
        demo::readRows(tables.front(), rows, u"STKKART.txt"_s);
        return {};
    } catch (const demo::TextError &error) {
        return error.what();
    }
}

TEST(DemoText, NamesFileAndLineOfAFault)
{
    const QByteArray schema = "tablo STKKART\n  STKKOD metin(4) anahtar\n  STKSIRA tam\n"
                              "  STKFIYAT para\n  STKTARIH tarih\n";
    const QByteArray names = "STKKOD|STKSIRA|STKFIYAT|STKTARIH\n";
    for (const Case &c : cases(u"demo_faults"_s)) {
        const auto text = [&](qsizetype field) {
            return c.value(field).toUtf8().replace("<schema>", schema).replace("<names>", names);
        };
        const std::string fault = faultOf(text(0), text(1));
        EXPECT_EQ(fault.substr(0, c.value(2).isEmpty() ? 99 : c.utf8(2).size()), c.utf8(2)) << c;
    }
}

TEST(DemoText, NamesTheRowThatBreaksARule)
{
    const Scratch scratch;
    auto tables = demo::readSchema("tablo A\n  X metin(9) anahtar\n", u"sema.txt"_s);
    demo::readRows(tables.front(), "X\nINCIR\nıncır \n", u"A.txt"_s);
    try {
        writeEmbeddedFile(scratch.path(u"x"_s), tables, kToday);
        FAIL();
    } catch (const demo::TextError &error) {
        EXPECT_EQ(std::string(error.what()).find("A.txt, satır 3"), 0U) << error.what();
    }
}

TEST(DemoText, AFileWithoutATableIsAFault)
{
    const Scratch scratch;
    scratch.write(u"sema.txt"_s, "tablo A\n  X tam\n");
    EXPECT_EQ(demo::readFolder(scratch.path()).size(), 1U);
    scratch.write(u"B.txt"_s, "X\n1\n");
    EXPECT_THROW(demo::readFolder(scratch.path()), demo::TextError);
}

TEST(DemoShop, IsMadeOnceAndLeavesNothingBeside)
{
    const Scratch scratch;
    EXPECT_TRUE(createDemoShop(scratch.path(), kToday, kText));
    EXPECT_EQ(QDir(scratch.path()).entryList(QDir::Files),
              (QStringList{u"DEMOANA.yerel"_s, u"DEMOSIRKET.yerel"_s}));
    EmbeddedEngine(scratch.path(), u"DEMOSIRKET"_s).execute(u"delete from STKKART"_s);
    QFile::remove(scratch.path(u"DEMOANA.yerel"_s));
    EXPECT_TRUE(createDemoShop(scratch.path(), kToday, kText));
    EXPECT_FALSE(createDemoShop(scratch.path(), kToday, kText));
    EXPECT_TRUE(EmbeddedEngine(scratch.path(), u"DEMOSIRKET"_s)
                    .execute(u"select * from STKKART"_s)
                    .eof()); // what is there is never replaced
}

TEST(DemoShop, IsMadeWholeOrNotAtAll)
{
    const Scratch scratch;
    QDir(scratch.path()).mkpath(u"metin/ana"_s);
    QDir(scratch.path()).mkpath(u"metin/sirket"_s);
    scratch.write(u"metin/ana/sema.txt"_s, "tablo A\n  X tam\n");
    scratch.write(u"metin/sirket/sema.txt"_s, "tablo A\n  X tam\n");
    scratch.write(u"metin/sirket/A.txt"_s, "X\nbir\n");
    EXPECT_THROW(createDemoShop(scratch.path(), kToday, scratch.path(u"metin"_s)), demo::TextError);
    EXPECT_TRUE(QDir(scratch.path()).entryList(QDir::Files).isEmpty());
    EXPECT_EQ(errorOf([&] { createDemoShop(scratch.path(u"yok"_s), kToday, kText); }),
              HostError::kConnectionLost);
}

/// The script in the repository is made from the text beside it.
TEST(DemoShop, TheCommittedScriptIsUpToDate)
{
    const QByteArray committed = readFile(sourcePath("/demo/sqlserver/demo.sql"));
    EXPECT_TRUE(QString::fromUtf8(committed) == demoSqlServerScript())
        << "run demo_sqlserver > demo/sqlserver/demo.sql";
}

} // namespace
