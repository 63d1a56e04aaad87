#include "common/settings_database.h"
#include "platform/machine/private_file.h"
#include "sales/receipt_store.h"
#include "shell/settings_file.h"
#include "support/files.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <QDirIterator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A working folder with settings alone.
struct Folder : ShopFolder, RealMachine
{
    Folder() : RealMachine(folder.path(), std::chrono::milliseconds(200))
    {
        createSettingsFile(program.files());
    }
};

void run(Folder &shop, const QString &statement, QStringView file = settings::kFile)
{
    OpenDatabase db(shop.db, shop.program.path(file));
    db.execute(statement);
}

QString serverName(Folder &shop)
{
    return settings::read(shop.program.files(), {u"server"}).server.server;
}

} // namespace

TEST(SettingsFile, MissingTablesRowsAndColumnsComeBackEmptyAndTheRestStays)
{
    Folder shop;
    run(shop, u"drop table login"_s);
    run(shop, u"delete from server"_s);
    run(shop, u"alter table liste drop column font"_s);
    run(shop, u"Update liste set title = 'DÜKKÂN' Where id ='1'"_s);
    EXPECT_FALSE(repairSettingsFile(shop.program.files()).isEmpty());
    EXPECT_EQ(serverName(shop), QString())
        << "a shop that lost its server row must not find itself in the demo shop";
    Settings typed;
    typed.login.sifre = u"X"_s;
    typed.liste.title = u"DÜKKÂN"_s;
    typed.liste.font = u"Arial"_s;
    typed.liste.listrenk = {255, 65280};
    typed.per.per = true;
    for (const QString &statement : settings::updates(typed, SettingWriter::dialog))
        run(shop, statement);
    EXPECT_EQ(repairSettingsFile(shop.program.files()), QString()) << "a whole file is left alone";
    const Settings stored = settings::read(shop.program.files(), {u"login", u"liste", u"per"});
    EXPECT_EQ(stored.login.sifre + stored.liste.title + stored.liste.font, u"XDÜKKÂNArial"_s);
    EXPECT_EQ(stored.liste.listrenk, typed.liste.listrenk);
    EXPECT_TRUE(stored.per.per);
}

TEST(SettingsFile, AReceiptLayoutIsMadeAndCompletedWhenItIsRead)
{
    Folder shop;
    const ReceiptLayout plain = receipt_store::fisoku(shop.program.files());
    EXPECT_EQ(plain.paperWidth(), 80.0);
    EXPECT_EQ(editableText(plain.headerText).section(u'\n', 0, 0), u"MAĞAZA ADI"_s);
    run(shop, u"drop table zno"_s, settings::kReceiptFile);
    run(shop, u"delete from fis"_s, settings::kReceiptFile);
    run(shop, u"alter table karakter drop column b4"_s, settings::kReceiptFile);
    EXPECT_EQ(receipt_store::fisoku(shop.program.files()), plain);
    EXPECT_TRUE(receipt_store::saveNumber(shop.program.files(), u"7"_s));
    EXPECT_EQ(receipt_store::fisoku(shop.program.files()).lastNumber, u"7"_s);
}

TEST(SettingsFile, ADamagedFileIsKeptAsideAndMadeAnew)
{
    Folder shop;
    const QString file = shop.program.path(settings::kFile);
    for (const QString &kept : {u"data.dbs.bozuk"_s, u"data.dbs.bozuk2"_s}) {
        const QByteArray bytes(9000 + kept.size(), 'x');
        writeFile(file, bytes);
        EXPECT_TRUE(repairSettingsFile(shop.program.files()).contains(kept));
        EXPECT_EQ(QFileInfo(shop.program.path(kept)).size(), bytes.size());
        run(shop, u"Update server set server = 'KASA1' Where id ='1'"_s);
        EXPECT_EQ(serverName(shop), u"KASA1"_s);
    }
}

// Another program that just saves must not cost the shop its server and password.
TEST(SettingsFile, AFileInUseIsNotTakenForADamagedOne)
{
    Folder shop;
    SqliteDatabase other;
    OpenDatabase busy(other, shop.program.path(settings::kFile));
    busy.execute(u"begin exclusive"_s);
    try {
        repairSettingsFile(shop.program.files());
        ADD_FAILURE() << "nothing was said";
    } catch (const HostError &error) {
        EXPECT_TRUE(error.text().contains(u"başka bir program"_s));
        shop.program.report(error);
        EXPECT_FALSE(shop.prompt.shown.back().text.contains(u"sunucu"_s));
    }
    busy.execute(u"rollback"_s);
    EXPECT_EQ(serverName(shop), kEmbeddedServer);
    EXPECT_FALSE(QFile::exists(shop.program.path(u"data.dbs.bozuk")));
}

TEST(SettingsFile, WhatKilledSavesLeaveIsClearedAndNothingElse)
{
    Folder shop;
    const auto files = [&] {
        QDirIterator all(shop.program.directory(), QDir::Files, QDirIterator::Subdirectories);
        QStringList names;
        while (all.hasNext())
            names += all.next();
        names.sort();
        return names;
    };
    const QStringList before = files();
    QDir().mkpath(shop.program.path(u"ayar"));
    for (const QString &name : {u"data.dbs.yeni"_s, u"data.dbs.yeni-journal"_s,
                                u"DEMOANA.yerel.0123456789abcdef0123456789abcdef.yeni"_s,
                                u"ayar/raf.ayr.yeni"_s, u"ayar/raf.ayr.yeni.aBcDeF"_s})
        writeFile(shop.program.path(name), "x");
    clearUnfinished(shop.program.directory());
    EXPECT_EQ(files(), before);
}

#ifdef Q_OS_UNIX
TEST(SettingsFile, PasswordsAreForTheOwnerOnly)
{
    Folder shop;
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    const QString file = shop.program.path(settings::kFile);
    EXPECT_FALSE(QFile::permissions(file).testAnyFlags(others));
    QFile::setPermissions(file, QFile::permissions(file) | others);
    EXPECT_TRUE(makePrivate(file));
    OpenDatabase open(shop.db, file);
    open.execute(u"begin immediate; Update login set sifre = 'X' Where id ='1'"_s);
    EXPECT_FALSE(QFile::permissions(file).testAnyFlags(others));
    EXPECT_FALSE(QFile::permissions(file + u"-journal"_s).testAnyFlags(others));
}
#endif
