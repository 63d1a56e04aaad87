#include "acceptance/rooms_shop.h"
#include "platform/fake_sql_server.h"
#include "shell/forms/baglan.h"
#include "shell/forms/login.h"
#include "shell/forms/parametre.h"

using namespace Qt::StringLiterals;

namespace {

struct AwayCase
{
    std::string name;
    std::optional<FakeSqlServer::Fault> fault; ///< none: nobody listens
    bool tray;

    friend void PrintTo(const AwayCase &one, std::ostream *out) { *out << one.name; }
};

class ConnectionRoad : public RoomsTest, public testing::WithParamInterface<AwayCase>
{
protected:
    ConnectionRoad() : RoomsTest(std::chrono::milliseconds(300), GetParam().tray)
    {
        if (GetParam().fault)
            m_server.emplace(*GetParam().fault);
        OpenDatabase file(shop.program.files(), settings::kFile);
        file.execute(
            u"Update server set server = '%1',kuladi = 'sa',sifre = 'x' Where id ='1'"_s.arg(
                m_server ? m_server->name() : u"127.0.0.1,1"_s));
    }
    /// From the dialog through the password to the settings, as often as somebody looks.
    parametre *settingsForm()
    {
        click(await<baglan>(), u"button2"_s);
        enter(await<login>(), u"lgpass"_s, {});
        return await<parametre>();
    }

private:
    std::optional<FakeSqlServer> m_server;
};

} // namespace

TEST_P(ConnectionRoad, LeadsFromAnAbsentServerThroughTheSettingsToANewStart)
{
    EXPECT_TRUE(endsByItself([this] {
        rooms.open();
        ASSERT_NE(await<baglan>(), nullptr);
        click(settingsForm(), u"button2"_s); // looked, and left as it was
        click(await<baglan>(), u"button1"_s);
        parametre *const form = settingsForm();
        ASSERT_NE(form, nullptr);
        EXPECT_TRUE(form->isModal());
        enter(form, u"srvadi"_s, u"(yerel)"_s);
        QTest::qWait(20);
        EXPECT_TRUE(open<parametre>().isEmpty());
        ASSERT_EQ(open<baglan>().size(), 1);
        EXPECT_TRUE(QTest::qWaitFor([] {
            return open<baglan>().first()->findChild<QPushButton *>(u"button1"_s)->isEnabled();
        }));
        click(open<baglan>().first(), u"button1"_s);
    }));
    EXPECT_TRUE(rooms.restartWanted());
}

INSTANTIATE_TEST_SUITE_P(
    , ConnectionRoad,
    testing::Values(AwayCase{"Refused", {}, false},
                    AwayCase{"Silent", FakeSqlServer::Fault::silent, true},
                    AwayCase{"LeavesLogin", FakeSqlServer::Fault::refusesLogin, false},
                    AwayCase{"AnswersNothing", FakeSqlServer::Fault::silentOnQuery, true}),
    [](const auto &one) { return one.param.name; });
