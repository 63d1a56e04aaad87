#include "sales/posting.h"
#include "sales/posting_statements.h"
#include "sales/priced_line.h"
#include "sales/till_shop.h"

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
        return faturakaydet(shop.program, oku(shop.program), sale, progress);
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

const QString kStock =
    u"STKKOD='S1' AND STKYIL='2026' AND STKAY='3'AND STKRAKTIP='%1'AND STKDEPO='D1'"_s;
const QString kAccount =
    u"CARKOD='C100' AND CARYIL='2026' AND CARAY='3'AND CARRAKTIP='%1'AND CARISLTIP='1'"_s;

} // namespace

TEST_F(LedgerPosting, ASaleOfOneLineIsPostedStatementByStatement)
{
    shop.host.answers[u"select * from STKMIZDEGER where "_s + kStock.arg(1)] =
        TillShop::row({u"STKALACAK"_s}, {4.5});
    shop.host.answers[u"select * from CARMIZDEGER where "_s + kAccount.arg(3)] =
        TillShop::row({u"CARBORC"_s}, {100.0});
    shop.host.answers[u"select max(CARFISREFNO) AS TOTAL from  CARFIS"_s] =
        TillShop::row({u"TOTAL"_s}, {900});
    shop.host.answers[u"select max(FATFISREFNO) AS TOTAL from  FATFIS"_s] =
        TillShop::row({u"TOTAL"_s}, {QVariant()});

    const PostingResult result =
        post({saleLine(u"869001"_s, u"S1"_s, u"1.000,50"_s, 2, {10, 5, 0})});
    EXPECT_EQ(result.missing(), 0);
    EXPECT_EQ(progress.step, progress.steps);
    EXPECT_TRUE(result.posted());
    const QStringList expected = {
        u"select * from EVRAKNO where EVRNOMODUL='2'AND EVRSIRANO='3'"_s,
        u"select * from EVRAKNO where EVRNOMODUL='3'AND EVRSIRANO='2'"_s,
        u"select * from EVRAKNO where EVRNOMODUL='1'AND EVRSIRANO='2'"_s,
        u"select max(STKFISREFNO) AS TOTAL from  STKFIS"_s,
        u"INSERT INTO STKFIS (STKFISTAR,STKFISREFNO,STKFISTIPI,STKFISGCFLAG,STKFISKAYONC,"
        "STKFISKAYNAK,STKFISCARKOD,STKFISANADEPO,STKFISEVRAKNO1,STKFISEVRAKNO2,STKFISDOVTAR,"
        "STKFISTOPBTUT,STKFISTOPISK,STKFISTOPNTUT,STKFISTOPKDV,STKFISTOPKTUT,STKFISSEVNO,"
        "STKFISOTVFLAG,STKFISTOPOTUT) values ('07.03.2026','1','7','2','2','3','C100','D1',"
        "'S123456','S123456','07.03.2026','2001.00','290.15','1710.85','307.95','1710.85','999',"
        "'0','0')"_s,
        u"select * from STKKART where STKKOD='S1'"_s,
        u"UPDATE STKKART SET STKBAKIYE= '98' where STKKOD='S1'"_s,
        u"select * from STKMIZDEGER where "_s + kStock.arg(1),
        u"UPDATE STKMIZDEGER SET STKALACAK= '6.5' where "_s + kStock.arg(1),
        u"select * from STKMIZDEGER where "_s + kStock.arg(6),
        u"INSERT INTO STKMIZDEGER (STKKOD,STKYIL,STKAY,STKRAKTIP,STKALACAK,STKDEPO) values "
        "('S1','2026','3','6','2001','D1')"_s,
        u"select * from STKMIZDEGER where "_s + kStock.arg(8),
        u"INSERT INTO STKMIZDEGER (STKKOD,STKYIL,STKAY,STKRAKTIP,STKALACAK,STKDEPO) values "
        "('S1','2026','3','8','290.15','D1')"_s,
        u"select * from STKMIZDEGER where "_s + kStock.arg(7),
        u"INSERT INTO STKMIZDEGER (STKKOD,STKYIL,STKAY,STKRAKTIP,STKALACAK,STKDEPO) values "
        "('S1','2026','3','7','1710.85','D1')"_s,
        u"INSERT INTO STKHAR (STKHARTAR,STKHARREFNO,STKHARTIPI,STKHARGCFLAG,STKHARKAYONC,"
        "STKHARKAYNAK,STKHARCARKOD,STKHARANADEPO,STKHARSTKKOD,STKHARSTKCINS,STKHARSTKBRM,"
        "STKHARBARKOD,STKHARMIKTAR,STKHARFIYAT,STKHARTUTAR,STKHARKDVYUZ,STKHARISKYUZ1,"
        "STKHARISKYUZ2,STKHARISKYUZ3,STKHARISKYTUT1,STKHARISKYTUT2,STKHARISKYTUT3,"
        "STKHARTOPLAMIND,STKHARKDVMATRAH,STKHARKDVTUTAR,STKHARTOPLAMTUT,STKHARVADETAR,"
        "STKHARFIYTIP,STKHARSIRANO,STKHARNETTUTAR,STKHARNETFIYAT,STKHAROTVMATRAH,STKHAROTVTUTAR,"
        "STKHAREKDATE1,STKHAREKDATE2) values ('07.03.2026','1','7','2','2','3','C100','D1','S1',"
        "'Çay','ADET','869001','2','1000.50','2001.00','18','10','5','0','200.1','90.045','0',"
        "'290.15','1710.85','307.95','1710.85','07.03.2026','1','1','1710.85','855.43','0','0',"
        "'07.03.2026','07.03.2026')"_s,
        u"select max(CARFISREFNO) AS TOTAL from  CARFIS"_s,
        u"INSERT INTO CARFIS (CARFISTAR,CARFISREFNO,CARFISTIPI,CARFISKAYONC,CARFISKAYNAK,"
        "CARFISCARKOD,CARFISCARUNVAN,CARFISEVRAKNO1,CARFISEVRAKNO2,CARFISDOVTAR,CARFISBORCTOP,"
        "CARFISHAZTAR,CARFISKONTTAR,CARFISONAYTAR,CARFISSEVNO,CARFISHAZKOD,CARFISKONTKOD,"
        "CARFISONAYKOD) values ('07.03.2026','901','5','2','3','C100','PERAKENDE','C000041',"
        "'C000041','07.03.2026','1710.85','07.03.2026','07.03.2026','07.03.2026','999','P1','','')"_s,
        u"select * from CARMIZDEGER where "_s + kAccount.arg(1),
        u"INSERT INTO CARMIZDEGER (CARKOD,CARYIL,CARAY,CARRAKTIP,CARBORC,CARISLTIP) values "
        "('C100','2026','3','1','1710.85','1')"_s,
        u"select * from CARMIZDEGER where "_s + kAccount.arg(3),
        u"UPDATE CARMIZDEGER SET CARBORC= '1810.85' where "_s + kAccount.arg(3),
        u"select * from CARKART where CARKOD='C100'"_s,
        u"UPDATE CARKART SET CARBORCTOP= '1721.35',CARBAKIYE= '1714.1' where CARKOD='C100'"_s,
        u"select max(FATFISREFNO) AS TOTAL from  FATFIS"_s,
        u"INSERT INTO FATFIS (FATFISTAR,FATFISREFNO,FATFISTIPI,FATFISGCFLAG,FATFISKAYONC,"
        "FATFISKAYNAK,FATFISSTKREFNO,FATFISCARREFNO,FATFISKDVDAHILFLAG,FATFISANADEPO,"
        "FATFISCARKOD,FATFISCARUNVAN,FATFISSAAT,FATFISVADETAR,FATFISIRSTAR,FATFISEVRAKNO1,"
        "FATFISKDVORANI,FATFISMALTOP,FATFISKALINDYTOP,FATFISBRUTTOPLAM,FATFISKDVMATRAHI,"
        "FATFISKDVTUTARI,FATFISARATOPLAM,FATFISGENTOPLAM,FATFISSEVNO,FATFISTOPOTUT,FATFISSATKOD,"
        "FATFISHAZKOD,FATFISKONTKOD,FATFISONAYKOD) values ('07.03.2026','1','3','2','1','3','1',"
        "'123456','1','D1','C100','PERAKENDE','14:5','07.03.2026','07.03.2026','FTR000007','18',"
        "'2001.00','290.15','1710.85','1710.85','307.95','1710.85','1710.85','999','0.00','P1',"
        "'P1','','')"_s,
        u"INSERT INTO FATHAR (FATHARTAR,FATHARREFNO,FATHARTIPI,FATHARGCFLAG,FATHARKAYONC,"
        "FATHARKAYNAK,FATHARCARKOD,FATHARSIRANO,FATHARKODTIP,FATHARSTKKOD,FATHARSTKCINS,"
        "FATHARSTKBRM,FATHARDEPOKOD,FATHARBARKOD,FATHARMIKTAR,FATHARFIYTIP,FATHARFIYAT,"
        "FATHARTUTAR,FATHARKDVYUZ,FATHARISKYUZ1,FATHARISKYUZ2,FATHARISKYUZ3,FATHARISKYTUT1,"
        "FATHARISKYTUT2,FATHARISKYTUT3,FATHARTOPLAMIND,FATHARKDVMATRAH,FATHARKDVTUTAR,"
        "FATHARTOPLAMTUT,FATHARNETTUTAR,FATHARNETFIYAT,FATHAROTVMATRAH,FATHAROTVTUTAR) values "
        "('07.03.2026','1','3','2','1','3','C100','1','1','S1','Çay','ADET','D1','869001','2','1',"
        "'1000.50','2001.00','18','10','5','0','200.1','90.045','0','290.15','1710.85','307.95',"
        "'1710.85','1710.85','855.43','0','0')"_s,
        u"INSERT INTO FATFISTOPLAM (FFTTAR,FFTREFNO,FFTTIPI,FFTGCFLAG,FFTKAYONC,FFTKAYNAK,"
        "FFTKDVDAHILFLAG,FFTCARKOD,FFTEVRAKNO1,FFTKONU,FFTBASLIK,FFTTUTAR,FFTMATRAH,FFTKDVORAN,"
        "FFTVADETAR) values ('07.03.2026','1','3','2','1','3','1','C100','FTR000007','1',"
        "'Kal.İnd.1 (%)','200.10','2001.00','0','07.03.2026')"_s,
        u"INSERT INTO FATFISTOPLAM (FFTTAR,FFTREFNO,FFTTIPI,FFTGCFLAG,FFTKAYONC,FFTKAYNAK,"
        "FFTKDVDAHILFLAG,FFTCARKOD,FFTEVRAKNO1,FFTKONU,FFTBASLIK,FFTTUTAR,FFTMATRAH,FFTKDVORAN,"
        "FFTVADETAR) values ('07.03.2026','1','3','2','1','3','1','C100','FTR000007','2',"
        "'Kal.İnd.2 (%)','90.04','1800.90','0','07.03.2026')"_s,
        u"INSERT INTO FATFISTOPLAM (FFTTAR,FFTREFNO,FFTTIPI,FFTGCFLAG,FFTKAYONC,FFTKAYNAK,"
        "FFTKDVDAHILFLAG,FFTCARKOD,FFTEVRAKNO1,FFTKONU,FFTBASLIK,FFTTUTAR,FFTMATRAH,FFTKDVORAN,"
        "FFTVADETAR) values ('07.03.2026','1','3','2','1','3','1','C100','FTR000007','3',"
        "'Kal.İnd.3 (%)','.00','1710.85','0','07.03.2026')"_s,
        u"INSERT INTO FATFISTOPLAM (FFTTAR,FFTREFNO,FFTTIPI,FFTGCFLAG,FFTKAYONC,FFTKAYNAK,"
        "FFTKDVDAHILFLAG,FFTCARKOD,FFTEVRAKNO1,FFTKONU,FFTBASLIK,FFTTUTAR,FFTMATRAH,FFTKDVORAN,"
        "FFTVADETAR) values ('07.03.2026','1','3','2','1','3','1','C100','FTR000007','101',"
        "'KDV(%18)','307.95','1710.85','18','07.03.2026')"_s,
        u"INSERT INTO CARHAR (CARHARTAR,CARHARREFNO,CARHARTIPI,CARHARKAYONC,CARHARKAYNAK,"
        "CARHARCARKOD,CARHARCARUNVAN,CARHARSIRANO,CARHARISTIPNO,CARHARISTIPKOD,CARHAREVRAKNO,"
        "CARHARACIKLAMA,CARHARGCFLAG,CARHARTUTAR,CARHARVADETAR,CARHARODENDI) values "
        "('07.03.2026','901','5','2','3','C100','PERAKENDE','1','1','FATURA','FTR000007',"
        "'FTR000007 NOLU SATIS FAT.ILE','1','1710.85','07.03.2026','1')"_s,
        u"UPDATE EVRAKNO SET EVRNO= '123457' where EVRNOMODUL='2'AND EVRSIRANO='3'"_s,
        u"UPDATE EVRAKNO SET EVRNO= '42' where EVRNOMODUL='3'AND EVRSIRANO='2'"_s,
        u"UPDATE EVRAKNO SET EVRNO= '8' where EVRNOMODUL='1'AND EVRSIRANO='2'"_s};
    ASSERT_EQ(shop.host.statements.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_EQ(shop.host.statements.at(i), expected.at(i)) << i;
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
        const bool reference = failed.startsWith(u"select max"_s); // read once more
        const bool counter = failed.contains(u" EVRAKNO "_s);
        EXPECT_EQ(result.missing(), reference ? 0 : 1) << fault;
        EXPECT_EQ(result.counters.size(), counter ? 1 : 0) << fault;
        EXPECT_TRUE(result.posted());
        EXPECT_FALSE(result.connectionLost);
        EXPECT_EQ(progress.step, progress.steps);

        const bool feedsTheNext = failed.startsWith(u"select * from");
        const qsizetype left = whole.size() - (feedsTheNext ? 1 : 0) + (reference ? 1 : 0);
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
