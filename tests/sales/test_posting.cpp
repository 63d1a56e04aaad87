#include "sales/posting.h"
#include "sales/posting_statements.h"
#include "sales/priced_line.h"
#include "sales/till_shop.h"
#include "support/golden.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

SaleLine saleLine(const QString &barcode, const QString &stockCode, const QString &price,
                  double quantity, const std::array<float, 3> &percent = {},
                  const QString &vatRate = u"18"_s)
{
    SaleLine line = pricedLine(price, quantity, percent, vatRate);
    line[SaleColumn::barcode] = barcode;
    line[SaleColumn::stockCode] = stockCode;
    line[SaleColumn::name] = u"Çay"_s;
    line[SaleColumn::unit] = u"ADET"_s;
    return line;
}

struct LedgerPosting : testing::Test
{
    LedgerPosting()
    {
        shop.add({u"869001"_s, u"S1"_s});
        shop.add({u"869002"_s, u"S2"_s});
        counter(ledger::kStockCounter, u"S"_s, 123456);
        counter(ledger::kAccountCounter, u"C"_s, 41);
        counter(ledger::kInvoiceCounter, u"FTR"_s, 7);
        shop.host.answers[u"select * from CARKART where CARKOD='C100'"_s] =
            TillShop::row({u"CARKOD"_s, u"CARBORCTOP"_s, u"CARBAKIYE"_s}, {u"C100"_s, 10.5, 3.25});
        sale.moment = shop.clock.moment;
        sale.cashierCode = u"P1"_s;
    }

    void counter(const ledger::Counter &which, const QString &prefix, const QVariant &number)
    {
        shop.host.answers[ledger::counterRow(which)] =
            TillShop::row({u"EVRONTAKI"_s, u"EVRNO"_s}, {prefix, number});
    }

    PostingResult post(std::vector<SaleLine> lines)
    {
        sale.lines = std::move(lines);
        sale.totals = totalsOf(sale.lines);
        shop.host.statements.clear();
        progress = {};
        return faturakaydet(shop.program, oku(shop.program.files()), sale, progress);
    }

    /// Which tables were read and written, in order: "rEVRAKNO wSTKFIS ".
    QString order() const
    {
        static const QRegularExpression table(u"(from  ?|INTO |UPDATE )(\\w+)"_s);
        QString tables;
        for (const QString &statement : shop.host.statements)
            tables += (statement.startsWith(u"select"_s) ? u'r' : u'w') +
                      table.match(statement).captured(2) + u' ';
        return tables;
    }

    TillShop shop;
    Sale sale;
    PostingProgress progress;
};

} // namespace

TEST_F(LedgerPosting, ASaleOfOneLineIsPostedStatementByStatement)
{
    const auto answer = [this](const QString &statement, const QString &column, QVariant value) {
        shop.host.answers[statement] = TillShop::row({column}, {std::move(value)});
    };
    answer(u"select * from STKMIZDEGER where STKKOD='S1' AND STKYIL='2026' AND STKAY='3'"
           "AND STKRAKTIP='1'AND STKDEPO='D1'"_s,
           u"STKALACAK"_s, 4.5);
    answer(u"select * from CARMIZDEGER where CARKOD='C100' AND CARYIL='2026' AND CARAY='3'"
           "AND CARRAKTIP='3'AND CARISLTIP='1'"_s,
           u"CARBORC"_s, 100.0);
    answer(u"select max(CARFISREFNO) AS TOTAL from  CARFIS"_s, u"TOTAL"_s, 900);
    answer(u"select max(FATFISREFNO) AS TOTAL from  FATFIS"_s, u"TOTAL"_s, {});

    const PostingResult result =
        post({saleLine(u"869001"_s, u"S1"_s, u"1.000,50"_s, 2, {10, 5, 0})});
    EXPECT_EQ(result.missing(), 0);
    EXPECT_EQ(progress.step, progress.steps);
    EXPECT_TRUE(result.posted());
    expectGolden(u"sales/posting.txt"_s, shop.host.statements.join(u'\n') + u'\n');
}

TEST_F(LedgerPosting, EveryLineIsPostedOnItsOwnAlsoOfOneStock)
{
    const SaleLine line = saleLine(u"869001"_s, u"S1"_s, u"5,00"_s, 1);
    post({line, line, saleLine(u""_s, u"S1"_s, u"5,00"_s, 1.5)});
    const QString perLine =
        u"rSTKKART wSTKKART "_s + u"rSTKMIZDEGER wSTKMIZDEGER "_s.repeated(4) + u"wSTKHAR "_s;
    EXPECT_EQ(order(), u"rEVRAKNO "_s.repeated(3) + u"rSTKFIS wSTKFIS "_s + perLine.repeated(3) +
                           u"rCARFIS wCARFIS "_s + u"rCARMIZDEGER wCARMIZDEGER "_s.repeated(2) +
                           u"rCARKART wCARKART rFATFIS wFATFIS "_s + u"wFATHAR "_s.repeated(3) +
                           u"wFATFISTOPLAM "_s.repeated(4) + u"wCARHAR "_s +
                           u"wEVRAKNO "_s.repeated(3));
    const QStringList invoiceLines = shop.sent(u"INSERT INTO FATHAR"_s);
    EXPECT_TRUE(
        invoiceLines.at(2).contains(u"'C100','3','1','S1','Çay','ADET','D1','','1.5','1',"_s));
}

TEST_F(LedgerPosting, AnInvoiceOfSeveralVatRatesNamesNoRate)
{
    post({saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1),
          saleLine(u"2"_s, u"S2"_s, u"5,00"_s, 1, {}, u"8"_s)});
    EXPECT_TRUE(shop.sent(u"INSERT INTO FATFIS "_s).first().contains(u"'FTR000007','0','10.00'"_s));
    EXPECT_TRUE(shop.sent(u"INSERT INTO FATFISTOPLAM"_s)
                    .last()
                    .contains(u"'KDV(%0)','1.30','10.00','18'"_s));
}

TEST_F(LedgerPosting, TheStockCounterIsAdvancedInSinglePrecision)
{
    counter(ledger::kStockCounter, u""_s, 16777216);
    counter(ledger::kAccountCounter, u""_s, 16777216);
    post({saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1)});
    EXPECT_EQ(shop.sent(u"UPDATE EVRAKNO"_s).first(),
              u"UPDATE EVRAKNO SET EVRNO= '16777216' where EVRNOMODUL='2'AND EVRSIRANO='3'"_s);
    EXPECT_TRUE(shop.sent(u"UPDATE EVRAKNO"_s).at(1).contains(u"'16777217'"_s));
}

TEST_F(LedgerPosting, AMissingCounterIsToldAndPostingGoesOn)
{
    shop.host.answers.remove(ledger::counterRow(ledger::kInvoiceCounter));
    const PostingResult result = post({saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1)});
    ASSERT_EQ(shop.prompt.shown.size(), 1U);
    EXPECT_EQ(shop.prompt.shown[0].text, u"Evrakno Hatası..."_s);
    EXPECT_EQ(result.missing(), 0);
    EXPECT_EQ(shop.host.statements.size(), 35);
}

TEST_F(LedgerPosting, SummaryAmountsHaveNoZeroBeforeThePoint)
{
    for (const auto &[value, text] : std::vector<std::pair<double, QString>>{
             {0, u".00"_s}, {0.5, u".50"_s}, {-0.5, u"-.50"_s}, {1234567.891, u"1234567.89"_s}})
        EXPECT_EQ(ledger::summaryText(value), text);
}

/// One run per statement: the others still go out, except those that would write back a value
/// which could not be read.
TEST_F(LedgerPosting, AFailedStatementDoesNotStopTheOthers)
{
    const std::vector<SaleLine> lines = {saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1),
                                         saleLine(u"2"_s, u"S2"_s, u"7,00"_s, 2)};
    ASSERT_EQ(post(lines).missing(), 0);
    const QStringList whole = shop.host.statements;
    for (qsizetype fault = 0; fault < whole.size(); ++fault) {
        qsizetype count = 0;
        shop.host.failOn = [&](const QString &) -> std::optional<int> {
            return count++ == fault ? std::optional(HostError::kStatement) : std::nullopt;
        };
        const PostingResult result = post(lines);
        const QString &failed = whole.at(fault);
        const bool counter = failed.startsWith(u"select * from EVRAKNO"_s);
        const bool readAgain = counter || failed.startsWith(u"select max"_s);
        const bool advance = failed.startsWith(u"UPDATE EVRAKNO"_s);
        EXPECT_EQ(result.missing(), readAgain ? 0 : 1) << fault;
        EXPECT_EQ(result.counters.size(), advance ? 1 : 0) << fault;
        EXPECT_TRUE(result.posted());
        EXPECT_FALSE(result.connectionLost);
        EXPECT_EQ(progress.step, progress.steps);

        const bool feedsTheNext = failed.startsWith(u"select * from") && !counter;
        const qsizetype left = whole.size() - (feedsTheNext ? 1 : 0) + (readAgain ? 1 : 0);
        EXPECT_EQ(shop.host.statements.size(), left) << failed.toStdString();
    }
}

/// Rows under number 0 would belong to every document that lost its number.
TEST_F(LedgerPosting, WithoutItsReferenceNumberADocumentIsNotSent)
{
    const std::vector<SaleLine> lines = {saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1),
                                         saleLine(u"2"_s, u"S2"_s, u"7,00"_s, 2)};
    const struct
    {
        QString table;
        QStringList notSent;
        qsizetype missing;
    } cases[] = {
        {u"STKFIS"_s, {u"STKFIS "_s, u"STKHAR"_s, u"FATFIS "_s}, 4},
        {u"CARFIS"_s, {u"CARFIS"_s, u"CARHAR"_s}, 2},
        {u"FATFIS"_s, {u"FATFIS "_s, u"FATHAR"_s, u"FATFISTOPLAM"_s}, 7},
    };
    for (const auto &c : cases) {
        shop.host.failOn = [&](const QString &statement) -> std::optional<int> {
            return statement.startsWith(u"select max(%1"_s.arg(c.table))
                       ? std::optional(HostError::kConnectionLost)
                       : std::nullopt;
        };
        const PostingResult result = post(lines);
        EXPECT_EQ(shop.sent(u"select max(%1"_s.arg(c.table)).size(), 2);
        for (const QString &table : c.notSent)
            EXPECT_TRUE(shop.sent(u"INSERT INTO "_s + table).isEmpty()) << table.toStdString();
        EXPECT_EQ(result.records.size(), c.missing);
        EXPECT_EQ(result.uncertain, 0);
        EXPECT_TRUE(result.connectionLost);
    }
}

TEST_F(LedgerPosting, ALostConnectionIsReportedAndNothingIsPostedWhenNothingWasWritten)
{
    const std::vector<SaleLine> lines = {saleLine(u"1"_s, u"S1"_s, u"5,00"_s, 1)};
    post(lines);
    const qsizetype statements = shop.host.statements.size();
    for (qsizetype fault = 0; fault < statements; ++fault) {
        shop.host.open = true;
        qsizetype count = 0;
        shop.host.failOn = [&](const QString &) -> std::optional<int> {
            if (count++ != fault)
                return {};
            shop.host.open = false;
            return HostError::kConnectionLost;
        };
        const PostingResult result = post(lines);
        EXPECT_TRUE(result.connectionLost);
        EXPECT_EQ(result.posted(), fault > 4) << fault;
        EXPECT_EQ(shop.host.statements.size(), fault + 1);
        // Of a write that was sent nobody knows; of those that were not, everybody.
        const bool write = !shop.host.statements.last().startsWith(u"select"_s);
        EXPECT_EQ(result.uncertain, write ? 1 : 0) << fault;
    }
    shop.host.open = true;
    shop.host.failOn = {};
    EXPECT_EQ(post(lines).missing(), 0);
}

TEST_F(LedgerPosting, HostileValuesInTheLedgerAreCountedNotWrittenOver)
{
    counter(ledger::kAccountCounter, u"C"_s, u"abc"_s);
    shop.host.answers[host_queries::card(u"S1"_s)] = TillShop::row({u"STKBAKIYE"_s}, {u"çok"_s});
    shop.host.answers.remove(u"select * from CARKART where CARKOD='C100'"_s);
    const PostingResult result = post({saleLine(u"1"_s, u"S1"_s, u""_s, 1, {}, u"yok"_s)});
    EXPECT_EQ(result.missing(), 3);
    EXPECT_TRUE(shop.sent(u"UPDATE STKKART"_s).isEmpty());
    EXPECT_TRUE(shop.sent(u"UPDATE CARKART"_s).isEmpty());
    EXPECT_EQ(shop.sent(u"UPDATE EVRAKNO"_s).size(), 2);
}
