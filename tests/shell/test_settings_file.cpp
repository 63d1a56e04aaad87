#include "common/settings_database.h"
#include "shell/settings_file.h"
#include "support/files.h"
#include "support/print_qt.h"
#include "support/real_shop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void run(RealShop &shop, const QString &statement)
{
    OpenDatabase db(shop.db, shop.program.path(settings::kFile));
    db.execute(statement);
}

} // namespace

TEST(SettingsFile, MissingTablesAndRowsComeBackEmptyAndTheRestStays)
{
    RealShop shop;
    run(shop, u"drop table login"_s);
    run(shop, u"delete from server"_s);
    run(shop, u"Update liste set title = 'DÜKKÂN' Where id ='1'"_s);
    EXPECT_FALSE(repairSettingsFile(shop.program).isEmpty());
    EXPECT_EQ(settings::value(shop.program, u"liste", u"title"), u"DÜKKÂN"_s);
    EXPECT_EQ(settings::value(shop.program, u"server", u"server"), QString())
        << "a shop that lost its server row must not find itself in the demo shop";
    run(shop, u"Update login set sifre = 'X' Where id ='1'"_s);
    EXPECT_EQ(settings::value(shop.program, u"login", u"sifre"), u"X"_s);
    EXPECT_EQ(repairSettingsFile(shop.program), QString()) << "a whole file is left alone";
    EXPECT_EQ(settings::value(shop.program, u"login", u"sifre"), u"X"_s);
}

TEST(SettingsFile, AFileThatIsNoDatabaseIsKeptAsideAndMadeAnew)
{
    for (const QByteArray &bytes : {QByteArray(), QByteArray(9000, 'x')}) {
        RealShop shop;
        writeFile(shop.program.path(settings::kFile), bytes);
        EXPECT_FALSE(repairSettingsFile(shop.program).isEmpty());
        EXPECT_EQ(QFileInfo(shop.program.path(u"data.dbs.bozuk")).size(), bytes.size());
        run(shop, u"Update server set server = 'KASA1' Where id ='1'"_s);
        EXPECT_EQ(settings::value(shop.program, u"server", u"server"), u"KASA1"_s);
    }
}
