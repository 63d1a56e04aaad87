#include "common/select_many.h"
#include "fakes/fake_ports.h"
#include "support/print_qt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Answers many at once, one row with its statement each, and counts the round trips.
class BatchHost final : public HostConnection
{
public:
    int state() const override { return 1; }
    RecordSet execute(const QString &statement) override
    {
        if (statement == failing)
            throw HostError(HostError::kStatement, statement);
        return {{u"S"_s}, {{statement}}};
    }
    void executeAll(const QStringList &statements, std::vector<RecordSet> &answers) override
    {
        ++trips;
        HostConnection::executeAll(statements, answers);
    }

    int trips = 0;
    QString failing;
};

} // namespace

TEST(SelectMany, NobodyCanTellThatTheyTravelledTogether)
{
    const struct
    {
        int count;
        QString failing;
        int stopAt; ///< −1: never
        int taken;
        int trips; ///< at most
    } cases[] = {
        {1000, {}, -1, 1000, 10}, {1, {}, -1, 1, 1},          {0, {}, -1, 0, 0},
        {1000, {}, 20, 21, 2},    {1000, u"20"_s, -1, 20, 2},
    };
    for (const auto &c : cases) {
        FakeMachine machine;
        auto owned = std::make_unique<BatchHost>();
        BatchHost &host = *owned;
        machine.program.bag = std::move(owned);
        host.failing = c.failing;
        int taken = 0;
        QString error;
        bool went = false;
        try {
            went = selectMany(
                machine.program, c.count, [](int i) { return QString::number(i); },
                [&](int i, RecordSet answer) {
                    EXPECT_EQ(i, taken++);
                    EXPECT_EQ(answer.text(u"S"), QString::number(i));
                    return i != c.stopAt;
                });
        } catch (const HostError &fault) {
            error = fault.text();
        }
        EXPECT_EQ(went, c.stopAt < 0 && c.failing.isEmpty());
        EXPECT_EQ(taken, c.taken);
        EXPECT_EQ(error, c.failing);
        EXPECT_LE(host.trips, c.trips);
    }
}
