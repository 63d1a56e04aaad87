#include "platform/machine/sqlite_database.h"
#include "platform/scratch.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>
using namespace Qt::StringLiterals;

namespace {

constexpr auto kLost = HostError::kConnectionLost;

TEST(SqliteDatabase, IsMadeWhenMissingAndKeepsWhatWasSaved)
{
    const Scratch scratch;
    SqliteDatabase db;
    {
        OpenDatabase open(db, scratch.path(u"data.dbs"_s));
        open.execute(u"create table per (id text, per text)"_s);
        open.execute(u"insert into per values ('1', '0')"_s);
        open.execute(u"Update per set per = 'Şükrü' Where id ='1'"_s);
    }
    EXPECT_EQ(errorOf([&] { db.execute(u"select * from per"_s); }), kLost);
    OpenDatabase open(db, scratch.path(u"data.dbs"_s));
    EXPECT_EQ(texts(open.execute(u"select * from per where id='1'"_s), u"per"),
              QStringList{u"Şükrü"_s});
    EXPECT_EQ(errorOf([&] { open.execute(u"Update per set per = '6'lı' Where id ='1'"_s); }),
              HostError::kStatement);
    EXPECT_EQ(errorOf([&] { open.execute(u"select * from yok where id='1'"_s); }),
              HostError::kStatement);
}

TEST(SqliteDatabase, SaysWhenAFileCannotBeUsed)
{
    const Scratch scratch;
    SqliteDatabase db;
    for (const QByteArray &content :
         {QByteArray(5000, 'x'), QByteArray("SQLite format 3\0damaged", 24)})
        EXPECT_EQ(errorOf([&] { db.open(scratch.write(u"data.dbs"_s, content)); }), kLost);
    EXPECT_EQ(errorOf([&] { db.open(scratch.path(u"yok/data.dbs"_s)); }), kLost);
    EXPECT_EQ(errorOf([&] { db.open(scratch.path()); }), kLost);
    EXPECT_EQ(errorOf([&] { db.execute(u"select 1"_s); }), kLost);
}

TEST(SqliteDatabase, AFullDiskLosesNothingThatWasSaved)
{
    const Scratch scratch;
    SqliteDatabase db;
    OpenDatabase open(db, scratch.path(u"data.dbs"_s));
    open.execute(u"create table liste (title text)"_s);
    open.execute(u"insert into liste values ('eski')"_s);
    open.execute(u"PRAGMA max_page_count=3"_s);
    const QString longTitle(50000, u'x');
    EXPECT_EQ(errorOf([&] { open.execute(u"Update liste set title = '%1'"_s.arg(longTitle)); }),
              HostError::kStatement);
    EXPECT_EQ(open.execute(u"select * from liste"_s).text(u"title"), u"eski"_s);
}

TEST(SqliteDatabase, AFileNobodyMayWriteCanStillBeRead)
{
    const Scratch scratch;
    const QString path = scratch.path(u"data.dbs"_s);
    SqliteDatabase db;
    OpenDatabase(db, path).execute(u"create table per (id text)"_s);
    QFile::setPermissions(path, QFile::ReadOwner);
    if (QFile(path).open(QIODevice::ReadWrite))
        GTEST_SKIP() << "this user may write everything";
    OpenDatabase open(db, path);
    EXPECT_TRUE(open.execute(u"select * from per"_s).eof());
    EXPECT_EQ(errorOf([&] { open.execute(u"insert into per values ('1')"_s); }),
              HostError::kStatement);
}

} // namespace
