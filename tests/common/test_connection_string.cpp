#include "common/connection_string.h"
#include "common/host_error.h"
#include "support/cases.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

TEST(ConnectionString, IsBuiltWithoutQuoting)
{
    EXPECT_EQ(connectionString({u"KASA1"_s, u"sa"_s, u"xxxx"_s, u"MUVSIRKET"_s}),
              u"Server=KASA1;Provider=SQLOLEDB;UID=sa;PWD=xxxx;database=MUVSIRKET;"_s);
    EXPECT_EQ(connectionString({{}, {}, u"a;'b"_s, {}}),
              u"Server=;Provider=SQLOLEDB;UID=;PWD=a;'b;database=;"_s);
}

TEST(ConnectionString, ReadsBackWhatItSays)
{
    struct Case
    {
        QString text;
        std::optional<ConnectionSettings> expected; // none: does not open
    };
    const ConnectionSettings usual{u"KASA1\\SQL2"_s, u"sa"_s, u"a=b"_s, u"MUV"_s};
    const std::vector<Case> cases = {
        {connectionString(usual), usual},
        {u"SERVER = KASA1\\SQL2 ; uid=sa;Pwd=a=b; DATABASE=MUV"_s, usual},
        {u"Server=x;UID=x;Server=KASA1\\SQL2;UID=sa;PWD=a=b;database=MUV;;"_s, usual},
        // A password with ";" breaks the string,
        {connectionString({u"K"_s, u"sa"_s, u"a;b"_s, u"MUV"_s}), std::nullopt},
        {u"Server=K;=x;"_s, std::nullopt},
        // or opens with what is left of it.
        {connectionString({u"K"_s, u"sa"_s, u"a;"_s, u"MUV"_s}),
         ConnectionSettings{u"K"_s, u"sa"_s, u"a"_s, u"MUV"_s}},
        {connectionString({u"K"_s, u"sa"_s, u"a;UID=b;Timeout=9"_s, u"MUV"_s}),
         ConnectionSettings{u"K"_s, u"b"_s, u"a"_s, u"MUV"_s}},
        {QString(), ConnectionSettings{}},
    };
    for (const Case &c : cases) {
        std::optional<ConnectionSettings> settings;
        try {
            settings = parseConnectionString(c.text);
        } catch (const HostError &error) {
            EXPECT_EQ(error.number(), HostError::kConnectionLost);
        }
        EXPECT_EQ(settings, c.expected) << c.text.toStdString();
    }
}

TEST(ServerName, SplitsHostInstanceAndPort)
{
    for (const Case &c : cases(u"server_names"_s)) {
        const ServerAddress expected{c.value(1), c.value(2), c.value(3).toInt()};
        if (expected.host.isEmpty())
            EXPECT_THROW(parseServerName(c.value(0)), HostError) << c;
        else
            EXPECT_EQ(parseServerName(c.value(0)), expected) << c;
    }
}

} // namespace
