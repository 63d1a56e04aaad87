#include "sales/journal/day_report.h"

#include "common/host_connection.h"
#include "sales/journal/journal_file.h"
#include "sales/journal/journal_words.h"
#include "sales/journal/kurus.h"
#include "sales/journal/row_search.h"

#include <QMultiHash>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace day_report {

namespace {

constexpr int kBarLetters = 14; ///< of the busiest hour on a receipt
/// A ledger without an index on its days reads all of them for each answer.
constexpr int kDaysAtOnce = 7;
constexpr qsizetype kMostDifferences = 500; ///< nobody reads more, and a receipt must end

/// The busy hours, from the first to the last.
std::pair<int, int> busyHours(const CashierFigures &figures)
{
    int first = 24;
    int last = -1;
    for (int hour = 0; hour < 24; ++hour)
        if (figures.hours.at(static_cast<std::size_t>(hour)).sales > 0) {
            first = std::min(first, hour);
            last = hour;
        }
    return {first, last};
}

QStringList hourLines(const CashierFigures &figures)
{
    qint64 most = 1;
    for (const HourFigures &hour : figures.hours)
        most = std::max(most, hour.total);
    QStringList lines;
    const auto [first, last] = busyHours(figures);
    for (int at = first; at <= last; ++at) {
        const HourFigures &hour = figures.hours.at(static_cast<std::size_t>(at));
        const auto letters = static_cast<qsizetype>(kBarLetters * std::max(hour.total, 0LL) / most);
        lines += u"%1 %2 %3 (%4)"_s.arg(QString::number(at).rightJustified(2, u'0'),
                                        QString(letters, u'#'), kurus::text(hour.total),
                                        QString::number(hour.sales));
    }
    return lines;
}

QString field(QString text)
{
    if (text.contains(u';') || text.contains(u'"') || text.contains(u'\n'))
        text = u'"' + text.replace(u'"', u"\"\""_s) + u'"';
    return text;
}

std::vector<std::pair<QString, const CashierFigures *>> columns(const DayFigures &figures)
{
    std::vector<std::pair<QString, const CashierFigures *>> all = {
        {columnName(figures.all, true), &figures.all}};
    for (const CashierFigures &cashier : figures.cashiers)
        all.emplace_back(columnName(cashier, false), &cashier);
    return all;
}

/// Invoices that tills wrote, by their day: document numbers with their totals, kuruş.
using Invoices = std::map<QDate, QMultiHash<QString, qint64>>;

Invoices invoicesOf(CompanyDatabase &company, QDate from, QDate to)
{
    RecordSet rows = company.company().execute(
        u"select FATFISTAR,FATFISEVRAKNO1,FATFISGENTOPLAM from FATFIS where FATFISTAR>='%1' AND "
        "FATFISTAR<='%2' AND %3"_s.arg(RecordSet::toText(from), RecordSet::toText(to),
                                       row_search::kTillInvoices));
    Invoices invoices;
    for (; !rows.eof(); rows.moveNext())
        invoices[rows.value(u"FATFISTAR").toDate()].insert(
            rows.text(u"FATFISEVRAKNO1"), kurus::of(rows.number(u"FATFISGENTOPLAM")));
    return invoices;
}

} // namespace

std::vector<Row> rows(const CashierFigures &figures, const std::vector<RateFigures> &rates)
{
    std::vector<Row> rows = {
        {u"Satış sayısı"_s, amount::whole(figures.sales)},
        {u"Brüt tutar"_s, kurus::text(figures.gross)},
        {u"İndirim"_s, kurus::text(figures.discount)},
        {u"Genel toplam"_s, kurus::text(figures.total)},
        {u"KDV toplamı"_s, kurus::text(figures.vat)},
    };
    for (const RateFigures &wanted : rates) {
        const auto found =
            std::find_if(figures.rates.begin(), figures.rates.end(),
                         [&wanted](const RateFigures &one) { return one.rate == wanted.rate; });
        const RateFigures none{wanted.rate};
        const RateFigures &rate = found == figures.rates.end() ? none : *found;
        const QString name = rate.rate.isEmpty() ? u"oransız"_s : u"%%1"_s.arg(rate.rate);
        rows.push_back({u"   %1 matrah"_s.arg(name), kurus::text(rate.net)});
        rows.push_back({u"   %1 KDV"_s.arg(name), kurus::text(rate.vat)});
    }
    rows.insert(rows.end(), {{u"Nakit"_s, kurus::text(figures.cash)},
                             {u"Kart"_s, kurus::text(figures.card)},
                             {u"Silinen satır"_s, amount::whole(figures.deletedLines)},
                             {u"Silinen tutar"_s, kurus::text(figures.deleted)},
                             {u"Eksik kayıtlı satış"_s, amount::whole(figures.incomplete)}});
    return rows;
}

QString columnName(const CashierFigures &figures, bool all)
{
    if (all)
        return u"Tümü"_s;
    return figures.name.isEmpty() ? u"(kasiyersiz)"_s : figures.name;
}

QString days(const DayFigures &figures)
{
    const QString from = RecordSet::toText(figures.from);
    return figures.from == figures.to ? from : from + u" – "_s + RecordSet::toText(figures.to);
}

QStringList closingLines(const DayReport &report)
{
    QStringList lines;
    if (report.counted)
        lines += {u"Sayılan nakit: "_s + kurus::text(*report.counted),
                  u"Fark: "_s + kurus::text(report.over())};
    if (report.compared)
        lines +=
            report.differences.isEmpty() ? u"Muhasebeyle fark yok."_s : u"Muhasebeyle farklar:"_s;
    return lines + report.differences;
}

QString text(const DayReport &report)
{
    QStringList lines = {u"GÜN SONU"_s, days(report.figures)};
    for (const auto &[name, figures] : columns(report.figures)) {
        if (figures == &report.figures.all || report.figures.cashiers.size() > 1) {
            lines += {QString(), name};
            for (const Row &row : rows(*figures, report.figures.all.rates))
                lines += row.caption.trimmed() + u": "_s + row.value;
        }
    }
    lines += {QString(), u"SAATLER"_s};
    lines += hourLines(report.figures.all);
    return (lines + QStringList{QString()} + closingLines(report)).join(u'\n');
}

QString csv(const DayReport &report)
{
    const auto all = columns(report.figures);
    QStringList header = {days(report.figures)};
    for (const auto &[name, figures] : all)
        header += field(name);
    QStringList lines = {header.join(u';')};
    const std::vector<Row> captions = rows(report.figures.all, report.figures.all.rates);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        QStringList fields = {field(captions[i].caption.trimmed())};
        for (const auto &[name, figures] : all)
            fields +=
                field(QString(rows(*figures, report.figures.all.rates)[i].value).remove(u'.'));
        lines += fields.join(u';');
    }
    const auto [first, last] = busyHours(report.figures.all);
    for (int hour = first; hour <= last; ++hour) {
        QStringList fields = {u"Saat %1"_s.arg(hour)};
        for (const auto &[name, figures] : all)
            fields +=
                kurus::text(figures->hours.at(static_cast<std::size_t>(hour)).total).remove(u'.');
        lines += fields.join(u';');
    }
    for (const QString &line : closingLines(report))
        lines += field(line);
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

std::optional<QStringList> compareWithLedger(CompanyDatabase &company, JournalFile &file,
                                             QDate from, QDate to,
                                             const std::function<bool(QDate)> &goOn)
{
    QStringList differences;
    qint64 more = 0;
    const auto add = [&](auto &&difference) {
        if (differences.size() < kMostDifferences)
            differences += difference();
        else
            ++more;
    };
    for (QDate first = from; first <= to; first = first.addDays(kDaysAtOnce)) {
        if (!goOn(first))
            return {};
        const QDate last = std::min(first.addDays(kDaysAtOnce - 1), to);
        Invoices invoices = invoicesOf(company, first, last);
        RecordSet sales = file.readWhole(
            u"SELECT an,fatura,genel FROM satis WHERE an>='%1' AND an<'%2' AND %3 ORDER BY no"_s
                .arg(first.toString(Qt::ISODate), last.addDays(1).toString(Qt::ISODate),
                     file.soldHere()));
        for (; !sales.eof(); sales.moveNext()) {
            const QString moment = sales.text(u"an");
            const QDate day = QDate::fromString(moment.first(10), Qt::ISODate);
            const QString number = sales.text(u"fatura");
            const qint64 total = qRound64(sales.number(u"genel"));
            QMultiHash<QString, qint64> &ofDay = invoices[day];
            if (ofDay.remove(number, total) > 0)
                continue;
            add([&] {
                const QString sale = u"%1 %2, %3 (%4)"_s.arg(
                    RecordSet::toText(day), moment.mid(11, 5), number, kurus::text(total));
                return ofDay.contains(number) ? u"%1: muhasebede tutarı %2"_s.arg(
                                                    sale, kurus::text(ofDay.value(number)))
                                              : u"%1: muhasebede yok"_s.arg(sale);
            });
            ofDay.take(number);
        }
        for (const auto &[day, left] : invoices)
            for (auto one = left.constBegin(); one != left.constEnd(); ++one)
                add([&, day = day] {
                    return u"%1, %2 (%3): bu kasanın günlüğünde yok (başka kasanın olabilir)"_s.arg(
                        RecordSet::toText(day), one.key(), kurus::text(one.value()));
                });
    }
    if (more > 0)
        differences += u"… ve %1 fark daha; günleri daraltın"_s.arg(amount::whole(more));
    return differences;
}

} // namespace day_report
