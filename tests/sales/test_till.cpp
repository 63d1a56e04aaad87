#include "sales/till_session.h"
#include "sales/till_shop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kLost = u"MUV SQL Server Bağlantısı Kurulamıyor. Server Bağlantısını Tekrar Yapmayı "
                      "Deneyin..."_s;

struct Till : testing::Test
{
    Till()
    {
        shop.add({u"869001"_s, u"S1"_s, u"Çay"_s, 100.0, {10, 10, 0}, 1});
        shop.add({u"869002"_s, u"S2"_s, u"Şeker"_s, 20.0, {}, 2});
        for (const QStringView where :
             {u"'2'AND EVRSIRANO='3'", u"'3'AND EVRSIRANO='2'", u"'1'AND EVRSIRANO='2'"})
            shop.host.answers[u"select * from EVRAKNO where EVRNOMODUL="_s + where.toString()] =
                TillShop::row({u"EVRONTAKI"_s, u"EVRNO"_s}, {u"E"_s, 12});
        shop.db.setRow(u"zno"_s, {{u"zno"_s, u"56"_s}});
        till.load();
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        QObject::connect(&till, &TillSession::noticed, [this](const QString &text, Notice how) {
            notice = text;
            kind = how;
        });
        QObject::connect(&till, &TillSession::postedIncompletely,
                         [this](const PostingReport &told) { report = told; });
        QObject::connect(&till, &TillSession::entryCleared, [this] { ++cleared; });
    }

    void scan(const QStringList &codes)
    {
        for (const QString &code : codes)
            till.enterCode(code);
    }
    QString cell(int list, int row, SaleColumn column) { return till.list(list).line(row)[column]; }
    QStringList messages() const
    {
        QStringList texts;
        for (const Message &message : shop.prompt.shown)
            texts += message.text;
        return texts;
    }

    TillShop shop;
    TillSession till{shop.program};
    QString notice;
    Notice kind = Notice::done;
    PostingReport report;
    int cleared = 0;
};

} // namespace

TEST_F(Till, ScansFillTheActiveListAndItsTotals)
{
    scan({u"869001"_s, u"869002"_s, u"869001"_s, u"yok"_s});
    EXPECT_EQ(till.list(0).size(), 2);
    EXPECT_EQ(till.totals(0).grand, u"182,00"_s);
    EXPECT_EQ(till.totals(0).discount, u"38,00"_s);
    EXPECT_EQ(till.totals(0).vat, u"30,76"_s);
    EXPECT_EQ(till.currentRow(0), 0);
    EXPECT_EQ(notice, u"Barkod bulunamadı: yok"_s);
    EXPECT_EQ(cleared, 4);

    till.selectList(2);
    scan({u"869002"_s});
    EXPECT_EQ(till.list(2).size(), 1);
    EXPECT_EQ(till.list(0).size(), 2);
    EXPECT_EQ(notice, QString());
}

TEST_F(Till, TheOtherEntryModeTakesStockCodesAndResetsAllCashFields)
{
    scan({u"869002"_s});
    till.setCash(0, u"50"_s);
    till.setCash(1, u"50"_s);
    till.selectList(1);
    scan({u"869002"_s});
    EXPECT_EQ(till.cash(0), u"50"_s);
    EXPECT_EQ(till.cash(1), u"0,00"_s);
    till.toggleEntryMode();
    scan({u"S1"_s});
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    EXPECT_EQ(cell(1, 1, SaleColumn::stockCode), u"S1"_s);
}

TEST_F(Till, ChangeFollowsTheCashAndTheTotals)
{
    scan({u"869002"_s});
    till.setCash(0, u"1.000,5"_s);
    EXPECT_EQ(till.change(0), u"980,50"_s);
    EXPECT_EQ(till.acceptCash(0), TillSession::CashEntry::taken);
    EXPECT_EQ(till.cash(0), u"1.000,50"_s);
    EXPECT_EQ(till.miktargir(u"2"_s), QString());
    EXPECT_EQ(till.change(0), u"960,50"_s);
    till.setCash(0, u"86,90.123"_s);
    EXPECT_EQ(till.acceptCash(0), TillSession::CashEntry::refused);
    EXPECT_EQ(shop.sounds.played.last(), u"/shop/sndoff.sun"_s);
    till.setCash(0, u""_s);
    EXPECT_EQ(till.change(0), u"0,00"_s);
    EXPECT_EQ(till.acceptCash(0), TillSession::CashEntry::taken);
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    EXPECT_EQ(till.change(0), u"-40,00"_s);
}

/// Nothing that was scanned or typed is lost by closing the sale.
TEST_F(Till, ASaleIsNotClosedOverAnythingUnentered)
{
    shop.add({u"86901234"_s, u"S3"_s, u"Tuz"_s, 5.0});
    scan({u"869002"_s});
    till.setCash(0, u"86901234"_s);
    till.post(); // a scan in the cash box: goods, not money
    EXPECT_EQ(till.list(0).size(), 2);
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    till.setCash(0, u"5,0.0"_s);
    till.post();
    EXPECT_TRUE(notice.contains(u"okunamadı"_s));
    till.setCash(0, u"100"_s);
    till.post(u"869"_s);
    EXPECT_TRUE(notice.contains(u"\"869\" girilmedi"_s));
    EXPECT_EQ(kind, Notice::fault);
    EXPECT_TRUE(shop.sent(u"INSERT"_s).isEmpty());
    till.post();
    EXPECT_TRUE(till.list(0).isEmpty());
    EXPECT_TRUE(shop.printed()[0].texts.contains(u"*100,00"_s));
}

TEST_F(Till, TheChangeStandsUntilTheNextCustomer)
{
    const auto sell = [this] {
        scan({u"869002"_s});
        till.setCash(0, u"50"_s);
        till.post();
        EXPECT_EQ(till.change(0), u"30,00"_s);
        EXPECT_EQ(till.postedTotal(0), u"20,00"_s);
    };
    sell();
    till.post(); // an impatient key hears it again
    EXPECT_EQ(notice, u"Satış kaydedildi: 20,00   Para üstü: 30,00"_s);
    EXPECT_EQ(kind, Notice::done);
    till.selectList(1);
    scan({u"869002"_s});
    EXPECT_EQ(till.change(0), u"30,00"_s); // the other list's customer is another one
    till.selectList(0);
    scan({u"yok"_s});
    EXPECT_EQ(till.change(0), u"0,00"_s);
    till.post();
    EXPECT_EQ(kind, Notice::fault);
    sell();
    till.setCash(0, u"5"_s);
    EXPECT_EQ(till.postedTotal(0), QString());
}

TEST_F(Till, ASaleIsPaidByOneKeyOrByCardAndGoesToItsCustomer)
{
    scan({u"3*869002"_s, u"1,5*869002"_s, u"2*869001"_s});
    EXPECT_EQ(cell(0, 0, SaleColumn::quantity), u"4,5"_s);
    EXPECT_EQ(till.totals(0).grand, u"252,00"_s);
    for (const QString &refused : {u"0*869002"_s, u"3*"_s, u"1.5*869002"_s, u"999999*869002"_s}) {
        scan({refused});
        EXPECT_EQ(kind, Notice::fault) << refused.toStdString();
        EXPECT_EQ(till.totals(0).grand, u"252,00"_s);
    }
    till.payExactly();
    EXPECT_EQ(till.change(0), u"0,00"_s);
    till.addBanknote(200); // instead
    till.addBanknote(100);
    EXPECT_EQ(till.change(0), u"48,00"_s);
    till.togglePayment();
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    till.setCustomer({u"120.07"_s, u"Yıldız Lokantası"_s});
    till.selectList(1);
    EXPECT_EQ(till.customer(), (Customer{u"C100"_s, u"PERAKENDE"_s}));
    till.selectList(0);
    till.post();
    EXPECT_TRUE(
        shop.sent(u"INSERT INTO CARFIS"_s).first().contains(u"'120.07','Yıldız Lokantası'"_s));
    ASSERT_EQ(shop.printed().size(), 1U);
    const QStringList texts = shop.printed()[0].texts;
    EXPECT_EQ(texts.at(texts.indexOf(u"KART"_s) + 1), u"*252,00"_s);
    EXPECT_EQ(texts.at(texts.indexOf(u"P.ÜSTÜ"_s) + 1), u"*0,00"_s);
    EXPECT_TRUE(texts.contains(u"Cari: Yıldız Lokantası"_s));
    scan({u"869002"_s});
    till.post(); // the next customer is the usual one, and pays cash
    EXPECT_TRUE(shop.sent(u"INSERT INTO CARFIS"_s).last().contains(u"'C100','PERAKENDE'"_s));
    EXPECT_FALSE(shop.printed()[1].texts.contains(u"KART"_s));
}

TEST_F(Till, AScanAfterTheCashTakesItBackAndTheChangeFollows)
{
    scan({u"869002"_s});
    EXPECT_EQ(till.change(0), u"0,00"_s); // no cash yet, nothing to compute
    till.setCash(0, u"50"_s);
    scan({u"yok"_s});
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    EXPECT_EQ(till.change(0), u"-20,00"_s);
    scan({u"869002"_s});
    EXPECT_EQ(till.change(0), u"-40,00"_s);
    till.post();
    scan({u"869002"_s});
    EXPECT_EQ(till.change(0), u"0,00"_s);
}

TEST_F(Till, QuantitiesAreSetAndAddedToTheCurrentLine)
{
    EXPECT_NE(till.miktargir(u"2"_s), QString()); // no line yet
    scan({u"869002"_s, u"869001"_s});
    till.moveSelection(-1);
    EXPECT_EQ(till.miktargir(u"1,5"_s), QString());
    EXPECT_EQ(till.miktarekle(u"0,25"_s), QString());
    EXPECT_EQ(cell(0, 0, SaleColumn::quantity), u"1,75"_s);
    EXPECT_EQ(cell(0, 0, SaleColumn::net), u"35,00"_s);
    for (const QString &refused : {u"0"_s, u"-1"_s, u"999.999.999"_s, u"beş"_s, u""_s}) {
        EXPECT_NE(till.miktargir(refused), QString());
        EXPECT_NE(till.miktarekle(refused), QString());
    }
    EXPECT_NE(till.miktarekle(u"999.999"_s), QString());
    EXPECT_EQ(cell(0, 0, SaleColumn::quantity), u"1,75"_s);
}

TEST_F(Till, ALineIsDeletedOnlyWhenConfirmed)
{
    scan({u"869001"_s, u"869002"_s});
    till.sil();
    EXPECT_EQ(till.list(0).size(), 2);
    shop.prompt.answers = {Answer::yes};
    till.sil();
    EXPECT_EQ(messages().last(), u"Kaydi Silmek Istediginize Eminmisiniz...?"_s);
    EXPECT_EQ(till.list(0).size(), 1);
    EXPECT_EQ(till.currentRow(0), 0);
    EXPECT_EQ(till.totals(0).grand, u"81,00"_s);
    shop.prompt.answers = {Answer::yes};
    till.sil();
    EXPECT_EQ(till.currentRow(0), -1);
    EXPECT_EQ(till.totals(0), pricing::Totals());
    till.sil(); // nothing left: nothing asked
    EXPECT_EQ(shop.prompt.shown.size(), 3U);
}

TEST_F(Till, WithTheSettingDeletingAndGivingAwayWantThePassword)
{
    shop.db.setRow(u"kasa"_s, {{u"silsifre"_s, u"1"_s}});
    shop.db.setRow(u"login"_s, {{u"sifre"_s, u"GİZLİ"_s}});
    shop.add({u"869009"_s, u"S9"_s, u"Hediye"_s, 10.0, {100, 0, 0}, 1});
    till.load();
    QStringList asked;
    bool given = false;
    till.permission = [&](const QString &what) {
        asked += what;
        return given;
    };
    shop.prompt.answers = {Answer::yes, Answer::yes};
    for (const bool allowed : {false, true}) {
        given = allowed;
        scan({u"869009"_s, u"869002"_s});
        till.work().openBoxes();
        EXPECT_EQ(till.list(0).size(), allowed ? 2 : 1);
        till.moveSelection(9);
        till.sil();
        till.work().openBoxes();
        EXPECT_EQ(till.list(0).size(), 1);
    }
    EXPECT_EQ(asked.size(), 4);
    EXPECT_TRUE(till.isPassword(u"gizli"_s));
    EXPECT_FALSE(till.isPassword({}));
}

TEST_F(Till, APostedSaleLeavesTheListAndItsReceiptShowsIt)
{
    till.setCashier({u"P1"_s, u"Ayşe"_s});
    scan({u"869001"_s, u"869002"_s});
    till.setCash(0, u"150"_s);
    till.post();
    EXPECT_TRUE(till.list(0).isEmpty());
    EXPECT_EQ(till.totals(0), pricing::Totals());
    EXPECT_EQ(till.cash(0), u"0,00"_s);
    EXPECT_TRUE(messages().isEmpty());
    EXPECT_TRUE(shop.sent(u"INSERT INTO CARFIS"_s).first().contains(u"'P1'"_s));

    ASSERT_EQ(shop.printed().size(), 1U);
    const QStringList texts = shop.printed()[0].texts;
    for (const QString &text : {u"FIS NO: 57"_s, u"Çay"_s, u"Şeker"_s, u"*120,00"_s, u"*101,00"_s,
                                u"*150,00"_s, u"*49,00"_s, u"Kasiyer: Ayşe"_s})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    EXPECT_EQ(shop.printed()[0].setup.paperCode, 256);
    EXPECT_EQ(shop.printed()[0].setup.paper.width(), 80.0);
    EXPECT_TRUE(shop.db.statements.contains(u"Update zno set zno = '57' Where id ='1'"_s));

    const qsizetype statements = shop.host.statements.size();
    till.post();
    EXPECT_EQ(shop.host.statements.size(), statements);
    EXPECT_EQ(shop.printed().size(), 1U);
}

TEST_F(Till, TheLastReceiptOfEachListIsPrintedAgain)
{
    scan({u"869001"_s});
    till.post();
    till.reprint();
    ASSERT_EQ(shop.printed().size(), 2U);
    EXPECT_EQ(shop.printed()[0].texts, shop.printed()[1].texts);
    till.selectList(1);
    till.reprint();
    EXPECT_EQ(shop.printed().size(), 2U);
}

TEST_F(Till, AReceiptThatWasNotPrintedCanBePrintedLater)
{
    shop.printers.finishError = u"kâğıt bitti"_s;
    scan({u"869001"_s});
    till.post();
    EXPECT_TRUE(till.list(0).isEmpty());
    ASSERT_EQ(messages().size(), 1);
    EXPECT_TRUE(messages().first().contains(u"kâğıt bitti"_s));
    shop.printers.finishError.reset();
    till.reprint();
    EXPECT_EQ(shop.printed().size(), 1U);

    shop.db.setRow(u"yazici"_s, {{u"yazici1"_s, u"PDF"_s}, {u"yazdirma"_s, u"0"_s}});
    till.load(); // a shop that prints no receipts
    scan({u"869002"_s});
    till.post();
    EXPECT_EQ(shop.printed().size(), 1U);
    till.reprint();
    EXPECT_TRUE(shop.printed().at(1).texts.contains(u"Şeker"_s));
}

TEST_F(Till, WithoutItsPrinterNothingIsPosted)
{
    shop.printers.list = QStringList{u"Lazer"_s};
    scan({u"869001"_s});
    const qsizetype statements = shop.host.statements.size();
    till.post();
    EXPECT_EQ(messages(), QStringList{u"Yazıcı Bulunamadı.Ayarlardan Yazıcı Kontrolu Yapıp Tekrar "
                                      "Deneyiniz..."_s});
    EXPECT_EQ(shop.host.statements.size(), statements);
    EXPECT_EQ(till.list(0).size(), 1);
}

TEST_F(Till, FailedStatementsAreToldWithTheirDocuments)
{
    shop.host.failOn = [](const QString &statement) -> std::optional<int> {
        return statement.startsWith(u"INSERT INTO FATFIS"_s) ? std::optional(HostError::kStatement)
                                                             : std::nullopt;
    };
    scan({u"869001"_s});
    till.post();
    EXPECT_EQ(kind, Notice::warning);
    EXPECT_TRUE(report.headline.contains(u"5 kayıt"_s));
    ASSERT_EQ(report.lines.size(), 5);
    EXPECT_TRUE(report.lines.at(0).startsWith(u"Fatura E000012: yazılamadı"_s));
    EXPECT_TRUE(report.lines.at(4).contains(u"KDV(%18)"_s));
    EXPECT_TRUE(till.list(0).isEmpty());
    EXPECT_EQ(shop.printed().size(), 1U);

    till.printReport(report);
    EXPECT_TRUE(shop.printed()[1].texts.join(u' ').contains(u"yeniden girmeyin"_s));
    till.saveReport(report, u"/nowhere/rapor.txt"_s);
    EXPECT_TRUE(messages().last().startsWith(u"Dosya yazılamadı: /nowhere/rapor.txt"_s));
}

/// Counters come first: they decide what the next sale is called.
TEST_F(Till, AnswersThatWereLostAreToldAsPossible)
{
    shop.host.failOn = [this](const QString &statement) -> std::optional<int> {
        const bool read = statement.startsWith(u"select * from EVRAKNO where EVRNOMODUL='3'"_s);
        const bool written =
            statement.startsWith(u"UPDATE CARKART"_s) || statement.startsWith(u"UPDATE EVRAKNO"_s);
        return read || written ? std::optional(HostError::kConnectionLost) : std::nullopt;
    };
    scan({u"869001"_s});
    till.post();
    EXPECT_EQ(messages(), QStringList{kLost});
    ASSERT_EQ(report.lines.size(), 4);
    EXPECT_TRUE(report.lines.at(0).startsWith(u"Cari fişi sayacı okunamadı"_s));
    EXPECT_EQ(report.lines.at(1),
              u"Stok fişi sayacı ilerletilmemiş olabilir: E000012 numarası yeniden verilebilir"_s);
    EXPECT_EQ(report.lines.at(3), u"Cari bakiyesi C100 (81,00 eklenecek): yazılmamış olabilir"_s);
    EXPECT_TRUE(report.headline.contains(u"3 kaydın yanıtı alınamadı"_s));
}

TEST_F(Till, ALostHostIsToldAndTheListStands)
{
    scan({u"869001"_s});
    shop.host.open = false;
    till.post();
    EXPECT_EQ(messages().first(), kLost);
    EXPECT_EQ(report.headline, QString()); // nothing was begun, nothing is to be completed
    EXPECT_EQ(till.list(0).size(), 1);
    EXPECT_TRUE(shop.printed().empty());

    scan({u"869002"_s});
    EXPECT_EQ(messages().last(), kLost);
    EXPECT_EQ(cleared, 1); // the code of the failed scan stays in the box

    shop.host.open = true;
    till.post();
    EXPECT_TRUE(till.list(0).isEmpty());
    EXPECT_EQ(shop.printed().size(), 1U);
}

/// One run per statement of each road, with a line already on the list.
TEST_F(Till, AFaultOfAnyLookupStatementIsToldAndLeavesTheListAsItWas)
{
    scan({u"869002"_s});
    bool refused = false;
    QObject::connect(&till, &TillSession::entryRefused, [&] { refused = true; });
    for (const bool barcode : {true, false}) {
        const QString code = barcode ? u"869001"_s : u"S1"_s;
        if (!barcode)
            till.toggleEntryMode();
        for (const int error : {HostError::kConnectionLost, HostError::kStatement}) {
            for (int fault = 0; fault < 3; ++fault) {
                const bool lost = error == HostError::kConnectionLost;
                refused = false;
                cleared = 0;
                shop.sounds.played.clear();
                shop.prompt.shown.clear();
                shop.host.statements.clear();
                shop.host.failOn = [&](const QString &) -> std::optional<int> {
                    if (shop.host.statements.size() != fault + 1)
                        return {};
                    shop.host.open = !lost;
                    return error;
                };
                scan({code});
                EXPECT_EQ(shop.host.statements.size(), fault + 1);
                EXPECT_EQ(messages(), lost ? QStringList{kLost} : QStringList());
                EXPECT_TRUE(notice.startsWith(u"Aranamadı: "_s + code));
                EXPECT_TRUE(shop.sounds.played.endsWith(u"/shop/sndoff.sun"_s));
                EXPECT_EQ(refused, lost) << "a code that was not looked up stays to be sent again";
                EXPECT_EQ(cleared, lost ? 0 : 1);
                ASSERT_EQ(till.list(0).size(), 1);
                EXPECT_EQ(till.totals(0).grand, u"20,00"_s);
                shop.host.open = true;
            }
        }
        shop.host.failOn = {};
        scan({code});
        EXPECT_EQ(till.list(0).size(), 2);
        shop.prompt.answers = {Answer::yes};
        till.sil();
        EXPECT_EQ(till.totals(0).grand, u"20,00"_s);
    }
}

TEST_F(Till, AnImpatientKeyPostsOnce)
{
    shop.host.answers.remove(u"select * from EVRAKNO where EVRNOMODUL='3'AND EVRSIRANO='2'"_s);
    scan({u"869001"_s});
    shop.prompt.onShow = [this] {
        EXPECT_TRUE(till.work().busy());
        till.post();
    };
    till.post();
    EXPECT_FALSE(till.work().busy());
    EXPECT_EQ(till.change(0), u"0,00"_s) << "no cash was given";
    EXPECT_EQ(shop.sent(u"INSERT INTO FATFIS "_s).size(), 1);
    EXPECT_EQ(shop.sent(u"INSERT INTO FATHAR"_s).size(), 1);
}

TEST_F(Till, ClosingWarnsOfTheListsThatHoldLines)
{
    EXPECT_TRUE(till.mayClose());
    till.selectList(1);
    scan({u"869001"_s});
    EXPECT_FALSE(till.mayClose());
    EXPECT_EQ(messages().last(),
              u" (SATIS2)  LİSTESİNDE ÜRÜN BULUNUYOR KAPATIRSANIZ TÜM ÜRÜNLER SİLİNECEKTİR. YİNEDE "
              "KAPATMAK İSTİYORMUSUNUZ...?"_s);
    till.selectList(2);
    scan({u"869001"_s});
    shop.prompt.answers = {Answer::yes};
    EXPECT_TRUE(till.mayClose());
    EXPECT_TRUE(messages().last().startsWith(u" (SATIS2) (SATIS3)  LİST"_s));
}

TEST_F(Till, ColumnWidthsAreKept)
{
    till.saveColumnWidths({120, 80, 300, 60, 60, 90, 70, 90, 90, 100});
    EXPECT_EQ(shop.db.statements.last(),
              u"Update olcu set olcu = '120-80-300-60-60-90-70-90-90-100' Where id ='1'"_s);
    shop.db.setRow(u"olcu"_s, {{u"olcu"_s, u"120-80,5-300-60-60-90-70-90-90-100"_s}});
    EXPECT_EQ(till.columnWidths(), QList<int>({120, 81, 300, 60, 60, 90, 70, 90, 90, 100}));
}

TEST(Cashiers, AreChosenByNameOrByPersonalCode)
{
    TillShop shop;
    shop.host.answers[host_queries::allOf(u"PERSONEL")] =
        RecordSet({u"PERKOD"_s, u"PERADSOYAD"_s, u"PEROZKOD"_s}, {{u"P1"_s, u"Ayşe"_s, u"1907"_s},
                                                                  {u"P2"_s, u"Ali"_s, u"Hö77"_s},
                                                                  {u"P3"_s, u"Can"_s, u"1907"_s},
                                                                  {u"P4"_s, u"Ece"_s, QVariant()}});
    CashierChoice choice(shop.program, true);
    Cashier last;
    QObject::connect(&choice, &CashierChoice::chosen, [&](const Cashier &c) { last = c; });
    int refused = 0;
    QObject::connect(&choice, &CashierChoice::rejected, [&] { ++refused; });
    choice.load();
    EXPECT_EQ(choice.names(), QStringList({u"Ayşe"_s, u"Ali"_s, u"Can"_s, u"Ece"_s}));

    choice.perlistesec(1);
    EXPECT_EQ(last, (Cashier{u"P2"_s, u"Ali"_s}));
    choice.perlistesec(-1);
    choice.perlistesec(4);
    EXPECT_EQ(last.code, u"P2"_s);
    choice.persifresec(u"1907"_s);
    EXPECT_EQ(last, (Cashier{u"P1"_s, u"Ayşe"_s}));
    choice.persifresec(u""_s);
    EXPECT_EQ(last.code, u"P4"_s);
    choice.persifresec(u"hö77"_s);
    EXPECT_EQ(last.code, u"P4"_s);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(shop.prompt.shown.back().text, u"GİRİLEN ŞİFREYİ KULLANAN PERSONEL BULUNAMADI..."_s);
}
