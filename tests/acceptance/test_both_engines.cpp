#include "fakes/label_shop.h"
#include "labels/desk/invoice_picker.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/price_change_request.h"
#include "sales/till_session.h"
#include "shell/settings_session.h"
#include "support/print_qt.h"
#include "support/real_shop.h"
#include "tour/ledger_rows.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The demo shop's dates are counted back from the server's own day.
QDateTime thisAfternoon()
{
    return {QDate::currentDate(), QTime(14, 5)};
}

/// What a shop shows and writes, in words.
class Transcript
{
public:
    void title(const QString &text) { m_lines += u"# "_s + text; }
    void line(const QStringList &fields) { m_lines += fields.join(u'|'); }

    /// The server promises no order: rows are noted sorted.
    void rows(QStringList rows)
    {
        rows.sort();
        m_lines += u"(%1)"_s.arg(rows.size());
        m_lines += rows;
    }
    void stocks(const StockList &list)
    {
        QStringList lines;
        for (const StockRow &row : list.rows())
            lines += stockLine(row);
        rows(lines);
    }

    const QStringList &lines() const { return m_lines; }

private:
    QStringList m_lines;
};

void searches(RealShop &shop, Transcript &script)
{
    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    using Search = void (StockLoader::*)(const QString &);
    const auto ask = [&](Search search, const QStringList &texts) {
        for (const QString &text : texts) {
            script.title(text);
            (desk.loader().*search)(text);
            script.stocks(desk.stocks());
        }
    };
    ask(&StockLoader::stkcinsibul,
        {u"SÜT"_s, u"ılık"_s, u"ILIK"_s, u"ilik"_s, u"çikolata"_s, u"ÇİKOLATA"_s, u"CIKOLATA"_s,
         u"ğ"_s, u"i"_s, u"I"_s, u"%5 kg"_s, u"1 [LK]"_s, u"Un_B"_s, u"''"_s, u"a?b"_s,
         u"{fn now()}"_s, u"-- x"_s, u"/*"_s, u"yok böyle"_s});
    ask(&StockLoader::stkkodbul, {u"gid.001"_s, u"_.001"_s, u"'"_s});
    for (const UnitChoice units : {UnitChoice::first, UnitChoice::second, UnitChoice::both}) {
        desk.loader().setUnits(units);
        ask(&StockLoader::stkcinsibul, {u"süt"_s});
        ask(&StockLoader::stkkodbul, {u"GID.001"_s});
        ask(&StockLoader::brkdbul, {u"8688107052881"_s, u"86933308 "_s, u"1"_s, QString()});
    }
    // The whole shop, then under the other prices.
    desk.loader().listele();
    script.stocks(desk.stocks());
    SettingsSession settings(shop.program);
    settings.load();
    Settings values = settings.values();
    values.stok.br1fyt = settings.lists().priceTypes.code(1);
    values.stok.br2fyt = settings.lists().priceTypes.code(0);
    settings.serverkaydet(values);
    desk.loadPriceNumbers();
    desk.loader().fiyatoku();
    script.stocks(desk.stocks());
}

void invoices(RealShop &shop, Transcript &script)
{
    const QDate today = shop.clock.now().date();
    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    InvoicePicker picker(shop.program);
    QObject::connect(&picker, &InvoicePicker::transferred, &desk.loader(), &StockLoader::listLines);
    picker.load();
    for (int type = 0; type < picker.types().size(); ++type)
        for (const int days : {0, 30, 400}) {
            picker.listInvoices(type, today.addDays(-days), today);
            script.title(picker.types()[type].code + QString::number(days));
            QStringList rows;
            for (int i = 0; i < picker.invoices().size(); ++i) {
                const InvoiceRow &row = picker.invoices().at(i);
                rows += QStringList{row.date, row.document, row.customer, row.reference}.join(u'|');
            }
            script.rows(rows);
            picker.invoices().checkAll(true);
            for (const QString &tracking : {QString(), u"T-1038"_s}) {
                picker.loadLines({!tracking.isEmpty(), tracking});
                desk.loader().listLines({});
                picker.anafatekle();
                script.stocks(desk.stocks());
            }
        }
}

void priceChanges(RealShop &shop, Transcript &script)
{
    const QDate today = shop.clock.now().date();
    LabelDesk desk(shop.program);
    PriceChangeRequest request(shop.program);
    QObject::connect(&request, &PriceChangeRequest::requested, &desk.loader(),
                     &StockLoader::fiyatdegisbul);
    const std::vector<ChangeRange> ranges = {
        request.usualRange(),
        {today, today, QTime(0, 0), QTime(23, 59)},
        {today.addDays(-47), today.addDays(-47), QTime(10, 23), QTime(10, 23, 59)},
        {today.addDays(-200), today.addDays(-9), QTime(9, 0), QTime(18, 30)},
    };
    for (const ChangeRange &range : ranges) {
        script.title(range.from.toString(Qt::ISODate));
        request.send(range);
        script.stocks(desk.stocks());
    }
}

void newNumbers(RealShop &shop, Transcript &script)
{
    LabelDesk desk(shop.program);
    desk.loadPriceNumbers();
    desk.loader().setUnits(UnitChoice::both);
    desk.loader().listele();
    desk.sortStocks(StockList::code); // who gets which number is the order of the list
    desk.ekbartum();
    NumberDesk &numbers = desk.numbers();
    script.title(numbers.summary());
    numbers.generate(u"869000000001"_s);
    script.title(numbers.summary());
    numbers.brgnc();
    QStringList rows;
    for (const QueueRow &row : desk.queue().rows())
        rows += QStringList{row.barcode, row.code, row.tag()}.join(u'|');
    script.rows(rows);
    desk.loader().listele();
    script.stocks(desk.stocks());
    // What was written goes to other programs as it stands in the table.
    RecordSet table = shop.program.company().execute(u"select * from STKBARKOD"_s);
    rows.clear();
    for (; !table.eof(); table.moveNext()) {
        QStringList fields;
        for (const QString &column : table.columns())
            fields += table.text(column);
        rows += fields.join(u'|');
    }
    script.rows(rows);
}

void sales(RealShop &shop, Transcript &script)
{
    const auto other = shop.connect();
    const LedgerRows before(*other);
    TillSession till(shop.program);
    till.load();
    till.setCashier({u"P01"_s, u"Ayşe Gündoğdu"_s});
    for (const QString &code : {u"8688107052881"_s, u"86933308"_s, u"8688107052881"_s,
                                u"8692848009608"_s, u"yok"_s, u"86916585"_s})
        till.enterCode(code);
    till.toggleEntryMode();
    for (const QString &code : {u"MNV.0011"_s, u"tem.0011"_s})
        till.enterCode(code);
    EXPECT_EQ(till.miktargir(u"0,355"_s), QString());
    till.setCash(0, u"10.000"_s);
    for (int row = 0; row < till.list(0).size(); ++row) {
        QStringList cells;
        for (const QString &cell : till.list(0).line(row).cells)
            cells += cell;
        script.line(cells);
    }
    script.line({till.totals(0).gross, till.totals(0).vat, till.totals(0).discount,
                 till.totals(0).grand, till.change(0)});
    till.post();
    till.enterCode(u"MNV.0011"_s);
    till.post();
    for (const QString &table : LedgerRows(*other).changedSince(before).split(u"\n\n"_s))
        script.rows(table.split(u'\n'));
}

struct Road
{
    const char *name;
    void (*walk)(RealShop &, Transcript &);
};

void PrintTo(const Road &road, std::ostream *out)
{
    *out << road.name;
}

class BothEngines : public testing::TestWithParam<Road>
{
protected:
    static Transcript walk(Engine engine)
    {
        RealShop shop(engine, thisAfternoon());
        shop.open();
        Transcript script;
        GetParam().walk(shop, script);
        for (const Message &message : shop.prompt.shown)
            script.title(message.text.section(u'\n', 0, 0));
        return script;
    }
};

} // namespace

/// A shop sees no difference between the engine its demo came with and its server.
TEST_P(BothEngines, AnswerAlike)
{
    SKIP_WITHOUT_SERVER();
    const QStringList embedded = walk(Engine::embedded).lines();
    const QStringList server = walk(Engine::server).lines();
    ASSERT_GT(embedded.size(), 4);
    for (qsizetype i = 0; i < std::min(server.size(), embedded.size()); ++i)
        ASSERT_EQ(server[i], embedded[i]) << "line " << i;
    EXPECT_EQ(server.size(), embedded.size());
}

INSTANTIATE_TEST_SUITE_P(, BothEngines,
                         testing::Values(Road{"Searches", searches}, Road{"Invoices", invoices},
                                         Road{"PriceChanges", priceChanges},
                                         Road{"NewNumbers", newNumbers}, Road{"Sales", sales}),
                         [](const auto &road) { return road.param.name; });
