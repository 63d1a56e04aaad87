#include "labels/print/label_fields.h"

#include "common/amount.h"
#include "common/program.h"
#include "common/turkish.h"
#include "labels/layout/label_layout.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const QString kUnit = u"Birim"_s;
const QString kOldPrice = kOldPriceField.toString();
const QString kUnitPrice = u"Birim Fiyatı"_s;
const QString kPriceDate = u"Fiyat Tarihi"_s;
const QString kPrintDate = u"Basım Tarihi"_s;

constexpr QStringView kPriceDateColumn = u"STKSYFTARIHI"; ///< of the last price change

bool isColumnName(const QString &name)
{
    return !name.isEmpty() && !isNamedField(name);
}

/// A measure of packs, and how many of it make the unit that prices are compared in.
struct Measure
{
    QStringView name;
    double perUnit;
    QStringView unit;
};

constexpr std::array<Measure, 12> kMeasures = {{{u"kg", 1, u"kg"},
                                                {u"g", 1000, u"kg"},
                                                {u"gr", 1000, u"kg"},
                                                {u"l", 1, u"lt"},
                                                {u"lt", 1, u"lt"},
                                                {u"litre", 1, u"lt"},
                                                {u"cl", 100, u"lt"},
                                                {u"ml", 1000, u"lt"},
                                                {u"cc", 1000, u"lt"},
                                                {u"adet", 1, u"adet"},
                                                {u"ad", 1, u"adet"},
                                                {u"li", 1, u"adet"}}};

/// Packs are written 1.000 g, 1,5 kg and 1.5 kg.
double packNumber(QString text)
{
    static const QRegularExpression grouped(u"^\\d{1,3}(\\.\\d{3})+$"_s);
    if (!grouped.match(text).hasMatch())
        text.replace(u'.', u',');
    return amount::parse(text).value_or(0);
}

/// The price before discounts of the record that gave the label's price; "" when nothing was
/// discounted.
QString oldPrice(RecordSet prices, const QString &labelPrice)
{
    QString old;
    const double shown = amount::parse(labelPrice).value_or(-1);
    for (; !prices.eof(); prices.moveNext()) {
        const double listed = prices.number(u"STKFIYTUTAR");
        double price = listed;
        for (const QStringView percent : {u"STKFIYISKYUZ1", u"STKFIYISKYUZ2", u"STKFIYISKYUZ3"})
            price -= price * prices.number(percent) / 100;
        if (std::abs(price - shown) < 0.011 && listed > price)
            old = amount::money(listed);
    }
    return old;
}

/// What one run asks of the ledger, once for each stock.
class FieldReader
{
public:
    FieldReader(CompanyDatabase &database, const QDate &today, const QStringList &names)
        : m_database(database), m_today(today)
    {
        for (const QString &name : names) {
            if (isColumnName(name))
                m_columns += name;
            m_card = m_card || isColumnName(name) || name == kPriceDate;
            m_prices = m_prices || name == kOldPrice;
        }
    }

    /// Asks for all stocks of the rows, as many statements in a round trip as the host takes.
    void load(const std::vector<LabelRow> &rows)
    {
        QStringList codes;
        for (const LabelRow &row : rows)
            if (row.count > 0)
                codes += row.stockCode;
        codes.removeDuplicates();
        if (m_card)
            ask(u"select * from STKKART where STKKOD='%1'"_s, codes, m_cards);
        if (m_prices)
            ask(u"select * from STKFIYAT where STKFIYSTKKOD='%1'"_s, codes, m_priceRecords);
    }

    void fill(LabelRow &row) const
    {
        row.fields.insert(kPrintDate, RecordSet::toText(m_today));
        if (m_card)
            fillFromCard(row);
        if (m_prices)
            row.fields.insert(kOldPrice, oldPrice(m_priceRecords.at(row.stockCode), row.price));
    }

private:
    void ask(const QString &statement, const QStringList &codes,
             std::map<QString, RecordSet> &known)
    {
        constexpr qsizetype slice = 50; // statements sent together
        for (qsizetype first = 0; first < codes.size(); first += slice) {
            const QStringList part = codes.mid(first, slice);
            QStringList statements;
            for (const QString &code : part)
                statements += statement.arg(code);
            std::vector<RecordSet> answers;
            m_database.company().executeAll(statements, answers);
            for (qsizetype i = 0; i < part.size(); ++i)
                known.emplace(part[i], answers.at(static_cast<std::size_t>(i)));
        }
    }

    void fillFromCard(LabelRow &row) const
    {
        const RecordSet &card = m_cards.at(row.stockCode);
        const auto text = [&](QStringView column) {
            const bool there = card.columns().contains(column, Qt::CaseInsensitive);
            return there && !card.eof() ? card.text(column).trimmed() : QString();
        };
        for (const QString &column : m_columns)
            if (card.columns().contains(column, Qt::CaseInsensitive))
                row.fields.insert(column, text(column));
        row.fields.insert(kPriceDate, text(kPriceDateColumn).section(u' ', 0, 0));
    }

    CompanyDatabase &m_database;
    QDate m_today;
    QStringList m_columns;
    bool m_card = false;
    bool m_prices = false;
    std::map<QString, RecordSet> m_cards;
    std::map<QString, RecordSet> m_priceRecords;
};

} // namespace

const std::vector<LabelField> &labelFields()
{
    static const std::vector<LabelField> fields = {
        {u"Stok Kodu"_s, u"Stok kartı"_s, u"STK000123"_s},
        {u"Barkod"_s, u"Kuyruktaki barkod"_s, u"8690000000012"_s},
        {u"Stok Adı"_s, u"Stok kartı"_s, u"Beyaz Peynir Tam Yağlı 500 g"_s},
        {kPriceField.toString(), u"Kuyruktaki etiket fiyatı"_s, u"129,90"_s},
        {kUnit, u"Kuyruktaki birim"_s, u"ADET"_s},
        {kOldPrice, u"İskontodan önceki fiyat; iskonto yoksa boş"_s, u"149,90"_s},
        {kUnitPrice, u"Addaki gramaj ve fiyattan hesaplanır"_s, u"259,80 TL/kg"_s},
        {kPriceDate, u"Stok kartı: son fiyat değişikliği"_s, u"21.11.2026"_s},
        {kPrintDate, u"Yazdırıldığı gün"_s, u"22.11.2026"_s},
    };
    return fields;
}

bool isNamedField(QStringView name)
{
    const auto &fields = labelFields();
    return std::any_of(fields.cbegin(), fields.cend(),
                       [name](const LabelField &field) { return field.name == name; });
}

QStringList stockCardColumns(CompanyDatabase &database)
{
    return database.company().execute(u"select * from STKKART where 1=0"_s).columns();
}

bool isKnownField(QStringView name, const LabelRow &row)
{
    return isNamedField(name) || row.fields.contains(name.toString());
}

QString fieldText(QStringView name, const LabelRow &row)
{
    if (name == u"Stok Kodu")
        return row.stockCode;
    if (name == u"Barkod")
        return row.barcode;
    if (name == u"Stok Adı")
        return row.stockName;
    if (name == kPriceField)
        return row.price;
    if (name == kUnit)
        return row.unit;
    if (name == kUnitPrice)
        return unitPrice(row.stockName, row.price);
    return row.fields.value(name.toString());
}

void readFields(CompanyDatabase &database, const QDate &today, const QStringList &names,
                std::vector<LabelRow> &rows)
{
    static const QSet<QString> own = {u"Stok Kodu"_s, u"Barkod"_s, u"Stok Adı"_s, u"Fiyat"_s,
                                      kUnit,          kUnitPrice,  QString()};
    if (std::all_of(names.cbegin(), names.cend(),
                    [](const QString &name) { return own.contains(name); }))
        return;
    FieldReader reader(database, today, names);
    reader.load(rows);
    for (LabelRow &row : rows)
        if (row.count > 0)
            reader.fill(row);
}

QString unitPrice(const QString &stockName, const QString &price)
{
    // The last size in a name is the pack's: "2'li Çay 500 g", "Su 6 x 0,5 lt".
    static const QRegularExpression pack(
        u"(?:(\\d+)\\s*[x*×]\\s*)?(\\d[\\d.,]*)\\s*'?"
        u"(kg|gr|g|litre|lt|l|ml|cl|cc|adet|ad|li|lı|lu|lü)(?![\\wçğıöşü])"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    QRegularExpressionMatch last;
    auto all = pack.globalMatch(turkish::lower(stockName));
    while (all.hasNext())
        last = all.next();
    const double money = amount::parse(price).value_or(0);
    if (!last.hasMatch() || money <= 0)
        return {};

    QString word = last.captured(3);
    if (word.size() == 2 && word.startsWith(u'l') && word != u"lt")
        word = u"li"_s;
    const auto measure = std::find_if(kMeasures.cbegin(), kMeasures.cend(),
                                      [&](const Measure &one) { return one.name == word; });
    const double packs = last.captured(1).isEmpty() ? 1 : packNumber(last.captured(1));
    const double size = packs * packNumber(last.captured(2));
    if (measure == kMeasures.cend() || size <= 0)
        return {};
    return u"%1 TL/%2"_s.arg(amount::money(money * measure->perUnit / size), measure->unit);
}
