#include "sales/till_session.h"
#include "sales/till_shop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A ledger that knows neither the warehouse nor the customer of the settings.
struct MovedTill : TillShop
{
    MovedTill()
    {
        host.answers[u"select * from DEPO where DEPKOD='D1'"_s] = RecordSet({u"DEPKOD"_s}, {});
        host.answers[u"select * from CARKART where CARKOD='C100'"_s] = RecordSet({u"CARKOD"_s}, {});
        add({u"869"_s, u"S1"_s});
        QObject::connect(&till, &TillSession::codesChecked, &till,
                         [this](const QStringList &unknown) { told = unknown; });
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        till.load();
    }
    qsizetype posted() const { return sent(u"INSERT INTO STKFIS "_s).size(); }
    void sell()
    {
        till.enterCode(u"869"_s);
        till.post();
    }

    TillSession till{program};
    QStringList told;
};

} // namespace

TEST(LedgerCodes, ThatAreNotThereAreToldAndAskedOfOnce)
{
    MovedTill shop;
    EXPECT_EQ(shop.told, (QStringList{u"depo D1"_s, u"cari hesap C100"_s}));
    shop.prompt.answers = {Answer::no, Answer::yes};
    shop.sell();
    EXPECT_EQ(shop.posted(), 0);
    EXPECT_TRUE(shop.prompt.shown.at(0).text.contains(u"depo D1, cari hesap C100"_s));
    shop.till.post();
    EXPECT_EQ(shop.posted(), 1);
    const std::size_t asked = shop.prompt.shown.size();
    shop.sell();
    EXPECT_EQ(shop.posted(), 2);
    for (std::size_t box = asked; box < shop.prompt.shown.size(); ++box)
        EXPECT_FALSE(shop.prompt.shown.at(box).text.contains(u"depo D1"_s));
}

/// Nobody is asked about a ledger that was mended meanwhile, or that cannot be asked itself.
TEST(LedgerCodes, ThatAreThereOrCannotBeAskedForAreNoMatter)
{
    MovedTill mended;
    mended.host.answers.remove(u"select * from DEPO where DEPKOD='D1'"_s);
    mended.host.answers.remove(u"select * from CARKART where CARKOD='C100'"_s);
    mended.sell();
    EXPECT_EQ(mended.posted(), 1);
    EXPECT_EQ(mended.told, QStringList());

    MovedTill closed;
    closed.host.failOn = [](const QString &statement) -> std::optional<int> {
        if (statement.contains(u" DEPO "_s) || statement.contains(u" CARKART "_s))
            return HostError::kConnectionLost;
        return {};
    };
    closed.till.load();
    EXPECT_EQ(closed.told, QStringList());
}
