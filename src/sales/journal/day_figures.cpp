#include "sales/journal/day_figures.h"

#include "sales/journal/journal_file.h"
#include "sales/journal/journal_words.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDaysAtOnce = 31;

int whole(const RecordSet &row, QStringView column)
{
    return qRound(row.number(column));
}

qint64 kurusIn(const RecordSet &row, QStringView column)
{
    return qRound64(row.number(column));
}

/// Adds the figures of a span of days to those of the cashiers and of all.
class DayReader
{
public:
    DayReader(JournalFile &file, DayFigures &figures) : m_file(file), m_figures(figures) {}

    void read(QDate from, QDate to)
    {
        m_span = u"an>='%1' AND an<'%2'"_s.arg(from.toString(Qt::ISODate),
                                               to.addDays(1).toString(Qt::ISODate));
        const QString sold = u" FROM satis s WHERE %1 AND %2"_s.arg(m_span, m_file.soldHere());
        each(u"SELECT kasiyer,substr(an,12,2) AS saat,count(*) AS adet,sum(brut) AS "
             u"brut,sum(indirim) "
             "AS indirim,sum(kdv) AS kdv,sum(genel) AS genel,sum(CASE odeme WHEN 'kart' THEN genel "
             "ELSE 0 END) AS kart,sum(durum='eksik') AS eksik"_s +
                 sold + u" GROUP BY kasiyer,saat"_s,
             &DayReader::addSales);
        each(
            u"SELECT kasiyer,oran,sum(o.matrah) AS matrah,sum(o.kdv) AS kdv FROM satis s JOIN oran "
            "o ON o.satis=s.no WHERE %1 AND %2 GROUP BY kasiyer,oran"_s.arg(m_span,
                                                                            m_file.soldHere()),
            &DayReader::addRate);
        each(
            u"SELECT kasiyer,count(*) AS adet,sum(tutar) AS tutar FROM olay WHERE %1 AND tur='sil' "
            "GROUP BY kasiyer"_s.arg(m_span),
            &DayReader::addDeleted);
    }

private:
    using Add = void (*)(CashierFigures &, const RecordSet &);

    void each(const QString &statement, Add add)
    {
        RecordSet rows = m_file.readWhole(statement);
        for (; !rows.eof(); rows.moveNext()) {
            add(m_figures.all, rows);
            add(cashier(rows.text(u"kasiyer")), rows);
        }
    }

    CashierFigures &cashier(const QString &name)
    {
        for (CashierFigures &known : m_figures.cashiers)
            if (known.name == name)
                return known;
        m_figures.cashiers.emplace_back().name = name;
        return m_figures.cashiers.back();
    }

    static void addSales(CashierFigures &to, const RecordSet &row)
    {
        to.sales += whole(row, u"adet");
        to.gross += kurusIn(row, u"brut");
        to.discount += kurusIn(row, u"indirim");
        to.vat += kurusIn(row, u"kdv");
        to.total += kurusIn(row, u"genel");
        to.card += kurusIn(row, u"kart");
        to.cash = to.total - to.card;
        to.incomplete += whole(row, u"eksik");
        HourFigures &hour =
            to.hours.at(static_cast<std::size_t>(std::clamp(row.text(u"saat").toInt(), 0, 23)));
        hour.sales += whole(row, u"adet");
        hour.total += kurusIn(row, u"genel");
    }

    static void addRate(CashierFigures &to, const RecordSet &row)
    {
        const QString rate = row.text(u"oran");
        auto known = std::find_if(to.rates.begin(), to.rates.end(),
                                  [&rate](const RateFigures &one) { return one.rate == rate; });
        if (known == to.rates.end())
            known = to.rates.insert(to.rates.end(), {rate});
        known->net += kurusIn(row, u"matrah");
        known->vat += kurusIn(row, u"kdv");
    }

    static void addDeleted(CashierFigures &to, const RecordSet &row)
    {
        to.deletedLines += whole(row, u"adet");
        to.deleted += kurusIn(row, u"tutar");
    }

    JournalFile &m_file;
    DayFigures &m_figures;
    QString m_span;
};

} // namespace

DayFigures readDays(JournalFile &file, QDate from, QDate to)
{
    DayFigures figures{from, to, {}, {}};
    DayReader reader(file, figures);
    for (QDate first = from; first <= to; first = first.addDays(kDaysAtOnce))
        reader.read(first, std::min(first.addDays(kDaysAtOnce - 1), to));
    std::sort(figures.cashiers.begin(), figures.cashiers.end(),
              [](const CashierFigures &left, const CashierFigures &right) {
                  return left.name.localeAwareCompare(right.name) < 0;
              });
    const auto byRate = [](const RateFigures &left, const RateFigures &right) {
        return left.rate.toDouble() < right.rate.toDouble();
    };
    std::sort(figures.all.rates.begin(), figures.all.rates.end(), byRate);
    for (CashierFigures &cashier : figures.cashiers)
        std::sort(cashier.rates.begin(), cashier.rates.end(), byRate);
    return figures;
}
