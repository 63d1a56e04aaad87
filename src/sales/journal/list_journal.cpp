#include "sales/journal/list_journal.h"

#include "sales/journal/journal_file.h"
#include "sales/journal/journal_words.h"
#include "sales/journal/kurus.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kBetween(0x1F); ///< parts cells; no code or name holds it
constexpr int kNoList = -1;

QString toContent(const SaleLine &line)
{
    return (QStringList(line.cells.begin(), line.cells.end()) << line.tag).join(kBetween);
}

SaleLine toLine(const QString &content)
{
    const QStringList parts = content.split(kBetween);
    SaleLine line;
    for (std::size_t i = 0; i < line.cells.size(); ++i)
        line.cells[i] = parts.value(static_cast<qsizetype>(i));
    line.tag = parts.value(kSaleColumns);
    return line;
}

/// One change of a list on top of those before it.
void apply(Sale &list, const RecordSet &event)
{
    const QString kind = event.text(u"tur");
    const QString content = event.text(u"icerik");
    const auto row = static_cast<std::size_t>(std::max(event.number(u"satir"), 0.0));
    if (kind == journal::kCash) {
        list.cash = content;
    } else if (kind == journal::kPayment) {
        list.payment = content == journal::kCard ? Payment::card : Payment::cash;
    } else if (kind == journal::kCustomer) {
        list.customer = {content.section(kBetween, 0, 0), content.section(kBetween, 1)};
    } else if (kind == journal::kRemoved) {
        if (row < list.lines.size())
            list.lines.erase(list.lines.begin() + static_cast<std::ptrdiff_t>(row));
    } else if (row < list.lines.size()) {
        list.lines[row] = toLine(content);
    } else {
        list.lines.push_back(toLine(content));
    }
}

} // namespace

JournalFile::Change ListJournal::event(QStringView kind, int list, int row,
                                       const QString &content) const
{
    return JournalFile::insertion(u"olay", {{u"an", m_file.now()},
                                            {u"liste", list},
                                            {u"tur", kind.toString()},
                                            {u"satir", row},
                                            {u"icerik", content}});
}

void ListJournal::setCashier(const Cashier &cashier)
{
    if (cashier == m_cashier)
        return;
    m_cashier = cashier;
    m_file.write({event(journal::kCashier, kNoList, 0, cashier.code + kBetween + cashier.name)});
}

void ListJournal::lineSet(int list, int row, const SaleLine &line)
{
    m_file.write({event(journal::kLine, list, row, toContent(line))});
}

/// With who deleted it and what it was worth: the end of the day counts them.
JournalFile::Change ListJournal::removal(int list, int row, const SaleLine &line) const
{
    return JournalFile::insertion(u"olay", {{u"an", m_file.now()},
                                            {u"liste", list},
                                            {u"tur", journal::kRemoved.toString()},
                                            {u"satir", row},
                                            {u"icerik", toContent(line)},
                                            {u"kasiyer", m_cashier.name},
                                            {u"tutar", kurus::of(line[SaleColumn::net])}});
}

void ListJournal::lineRemoved(int list, int row, const SaleLine &line)
{
    m_file.write({removal(list, row, line)});
}

void ListJournal::cashSet(int list, const QString &cash, Payment payment)
{
    const QStringView way = payment == Payment::card ? journal::kCard : journal::kCashPaid;
    m_file.write(
        {event(journal::kCash, list, 0, cash), event(journal::kPayment, list, 0, way.toString())});
}

void ListJournal::customerSet(int list, const Customer &customer)
{
    m_file.write({event(journal::kCustomer, list, 0, customer.code + kBetween + customer.name)});
}

void ListJournal::cleared(int list, const std::vector<SaleLine> &dropped)
{
    JournalFile::Changes changes = clearing(list);
    for (const SaleLine &line : dropped)
        changes.push_back(removal(list, 0, line));
    m_file.write(changes);
}

/// What the list went through is of no use any more; what was deleted counts on.
JournalFile::Changes ListJournal::clearing(int list) const
{
    // "+liste": by the numbers, which are few behind the last clearing, not by all of the list.
    static const QString forget =
        u"DELETE FROM olay WHERE no>=(SELECT coalesce(max(no),0) FROM olay WHERE liste=?1 AND "
        "tur='%1') AND +liste=?1 AND tur<>'%2'"_s.arg(journal::kCleared, journal::kRemoved);
    return {{forget, {list}}, event(journal::kCleared, list, 0, {})};
}

Sale ListJournal::left(int list) const
{
    Sale left;
    RecordSet events = m_file.read(
        u"SELECT an,tur,satir,icerik FROM olay WHERE liste=%1 AND tur<>'%2' AND no>(SELECT "
        "coalesce(max(no),0) FROM olay WHERE liste=%1 AND tur='%2') ORDER BY no"_s.arg(
            QString::number(list), journal::kCleared));
    for (; !events.eof(); events.moveNext()) {
        apply(left, events);
        left.moment = QDateTime::fromString(events.text(u"an"), Qt::ISODateWithMs);
    }
    return left;
}

Cashier ListJournal::lastCashier() const
{
    const RecordSet last = m_file.read(
        u"SELECT icerik FROM olay WHERE liste=%1 ORDER BY no DESC LIMIT 1"_s.arg(kNoList));
    if (last.eof())
        return {};
    const QStringList parts = last.text(u"icerik").split(kBetween);
    return {parts.value(0), parts.value(1)};
}
