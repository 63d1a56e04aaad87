#include "sales/receipt_store.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/resume_next.h"
#include "common/settings_database.h"

#include <QHash>

#include <vector>

using namespace Qt::StringLiterals;

namespace receipt_store {

namespace {

struct Column
{
    QString name;
    QString value;
};

struct Table
{
    QString name;
    std::vector<Column> columns;
};

/// The layout as the file holds it; the counter is written on its own after each sale.
std::vector<Table> tablesOf(const ReceiptLayout &layout)
{
    Table widths{u"karakter"_s, {}};
    for (std::size_t i = 0; i < layout.widths.size(); ++i)
        widths.columns.push_back({u"b%1"_s.arg(i + 1), amount::plain(layout.widths[i])});
    return {{u"baslik"_s, {{u"bilgi"_s, layout.headerOptions}, {u"text"_s, layout.headerText}}},
            {u"fis"_s,
             {{u"bilgi"_s, layout.receiptOptions},
              {u"ust"_s, layout.aboveText},
              {u"alt"_s, layout.belowText}}},
            {u"urun"_s, {{u"bilgi"_s, layout.productOptions}}},
            {u"fnt"_s, {{u"fnt"_s, layout.namedFonts ? u"1"_s : u"0"_s}}},
            widths,
            {u"sol"_s, {{u"sol"_s, amount::plain(layout.leftMargin)}}}};
}

Table counterTable(const QString &number)
{
    return {u"zno"_s, {{u"zno"_s, number}}};
}

QString quotable(QString value)
{
    return value.replace(u'\'', u'’');
}

void create(OpenDatabase &db, const Table &table)
{
    QStringList names{u"id"_s};
    QStringList values{u"1"_s};
    for (const Column &column : table.columns) {
        names += column.name;
        values += quotable(column.value);
    }
    // The table may be there and lack only its row.
    resumeNext([&] {
        db.execute(u"create table %1 (%2 text)"_s.arg(table.name, names.join(u" text,"_s)));
    });
    resumeNext([&] {
        db.execute(u"insert into %1 (%2) values ('%3')"_s.arg(table.name, names.join(u','),
                                                              values.join(u"','"_s)));
    });
}

void update(OpenDatabase &db, const Table &table)
{
    QStringList pairs;
    for (const Column &column : table.columns)
        pairs += u"%1 = '%2"_s.arg(column.name, quotable(column.value));
    db.execute(u"Update %1 set %2' Where id ='1'"_s.arg(table.name, pairs.join(u"',"_s)));
}

/// "table.column" → stored text.
using Texts = QHash<QString, QString>;

/// Reads the row of one table, which is made when it is missing; columns that cannot be read keep
/// the values of `table`.
void read(OpenDatabase &db, const Table &table, Texts &texts)
{
    RecordSet row;
    const auto readRow = [&] {
        return resumeNext([&] { row = settings::row(db, table.name); }) && !row.eof();
    };
    if (!readRow()) {
        create(db, table);
        readRow();
    }
    for (const Column &column : table.columns) {
        QString &text = texts[table.name + u'.' + column.name];
        text = column.value;
        resumeNext([&] { text = row.text(column.name); });
    }
}

double number(const Texts &texts, const QString &name)
{
    return amount::parse(texts.value(name)).value_or(0.0);
}

ReceiptLayout layoutOf(const Texts &texts)
{
    ReceiptLayout layout;
    layout.headerOptions = texts.value(u"baslik.bilgi"_s);
    layout.headerText = texts.value(u"baslik.text"_s);
    layout.receiptOptions = texts.value(u"fis.bilgi"_s);
    layout.aboveText = texts.value(u"fis.ust"_s);
    layout.belowText = texts.value(u"fis.alt"_s);
    layout.productOptions = texts.value(u"urun.bilgi"_s);
    layout.lastNumber = texts.value(u"zno.zno"_s);
    layout.namedFonts = texts.value(u"fnt.fnt"_s) == u"1";
    for (std::size_t i = 0; i < layout.widths.size(); ++i)
        layout.widths[i] = number(texts, u"karakter.b%1"_s.arg(i + 1));
    layout.leftMargin = number(texts, u"sol.sol"_s);
    return layout;
}

} // namespace

ReceiptLayout fisoku(Program &program)
{
    const ReceiptLayout plain = defaultReceiptLayout();
    std::vector<Table> tables = tablesOf(plain);
    tables.push_back(counterTable(plain.lastNumber));
    Texts texts;
    const bool opened = resumeNext([&] {
        OpenDatabase db(program.db, program.path(kFile));
        for (const Table &table : tables)
            read(db, table, texts);
    });
    return opened ? layoutOf(texts) : plain;
}

void save(Program &program, const ReceiptLayout &layout)
{
    OpenDatabase db(program.db, program.path(kFile));
    for (const Table &table : tablesOf(layout))
        update(db, table);
}

bool saveNumber(Program &program, const QString &number)
{
    return resumeNext([&] {
        OpenDatabase db(program.db, program.path(kFile));
        update(db, counterTable(number));
    });
}

} // namespace receipt_store
