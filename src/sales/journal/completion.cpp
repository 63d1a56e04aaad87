#include "sales/journal/completion.h"

#include "common/amount.h"
#include "common/prompt.h"
#include "sales/journal/row_search.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

using ledger::Document;
using ledger::LedgerSale;
using ledger::Record;

namespace {

bool same(double left, double right)
{
    return std::abs(left - right) < 0.00005; // the ledger keeps four decimals of money
}

bool answerLost(const RecordMark &mark)
{
    return mark.sent == Sent::waiting || mark.sent == Sent::unknown;
}

} // namespace

Completion::Completion(CompanyDatabase &company, Prompt &prompt, JournaledSale sale,
                       PostingLog &log)
    : m_company(company), m_prompt(prompt), m_journaled(std::move(sale)),
      m_sale(m_journaled.inLedger()), m_records(m_sale.records()), m_log(log),
      m_writer(company, log)
{}

Completion::Result Completion::run()
{
    const auto findSlips = [this] {
        findReference(Document::stock);
        findReference(Document::account);
    };
    m_company.company();
    findReference(Document::invoice);
    // The invoice comes last: where it stands, so do the slips before it.
    if (m_journaled.powerCut || !m_sale.reference(Document::invoice).isEmpty())
        findSlips();
    decideRows();
    if (m_endLacks && !m_journaled.powerCut) {
        m_journaled.powerCut = true;
        findSlips();
        decideRows();
    }
    decideFigures();
    m_result.reached = std::any_of(m_states.begin(), m_states.end(),
                                   [](const auto &state) { return state.second == State::done; });
    if (m_result.undecided || !m_result.reached)
        return m_result;
    for (const Document document : ledger::kDocuments)
        settleNumber(document);
    m_log.drawn(m_sale);
    for (const Record &record : m_records) {
        for (const Document document : ledger::kDocuments)
            if (record == LedgerSale::slipOf(document)) {
                settleReference(document); // right before its slip: other tills draw them too
                m_log.drawn(m_sale);
            }
        write(record);
    }
    for (const Document document : ledger::kDocuments)
        advance(document);
    if (!m_result.connectionLost)
        for (const Document document : ledger::kDocuments)
            tellDouble(document);
    m_result.written = m_writer.written();
    return m_result;
}

RecordMark *Completion::markOf(const Record &record)
{
    const auto found = m_journaled.marks.find(record.key());
    return found == m_journaled.marks.end() ? nullptr : &found->second;
}

// ---- what stands in the ledger

/// A power cut, or a disk that was full in the middle of the posting, may have kept a reference
/// out of the journal under which rows were written: the document is found by its number.
void Completion::findReference(Document document)
{
    if (!m_sale.reference(document).isEmpty() || m_sale.drawn(document).number.isEmpty())
        return;
    const Record slip = LedgerSale::slipOf(document);
    RecordSet rows = m_writer.read(row_search::byNumber(m_sale, slip));
    for (; !rows.eof(); rows.moveNext())
        if (row_search::isOurs(m_sale, slip, rows) && row_search::tellsSale(m_sale, slip, rows))
            m_sale.setReference(document, row_search::referenceIn(slip, rows));
}

void Completion::decideRows()
{
    for (const Record &record : m_records)
        if (record.isRow())
            stateOf(record) = rowState(record);
}

Completion::State Completion::rowState(const Record &row)
{
    const RecordMark *mark = markOf(row);
    if (mark && mark->sent == Sent::done)
        return State::done;
    for (const Document document : LedgerSale::referencesOf(row))
        if (m_sale.reference(document).isEmpty())
            return State::missing; // was never sent
    try {
        return search(row);
    } catch (const HostError &error) {
        if (error.connectionLost())
            throw;
        return State::missing; // nothing can tell: what keeps it from being read kept it from being
                               // written
    }
}

Completion::State Completion::search(const Record &row)
{
    RecordSet rows = m_writer.read(row_search::statement(m_sale.quotable(), row));
    const bool occupied = !rows.eof();
    for (; !rows.eof(); rows.moveNext())
        if (row_search::isOurs(m_sale, row, rows)) {
            m_endLacks |= !markOf(row); // the journal stopped before the posting did
            found(row);
            return State::done;
        }
    return occupied && row.line == 0 && row.part == 0 ? State::foreign : State::missing;
}

void Completion::decideFigures()
{
    // From the last to the first: what a later one was reckoned from tells of those before it.
    for (auto record = m_records.rbegin(); record != m_records.rend(); ++record)
        if (!record->isRow())
            stateOf(*record) = figureState(*record);
}

Completion::State Completion::figureState(const Record &figure)
{
    const RecordMark *mark = markOf(figure);
    if (mark && mark->sent == Sent::done)
        return State::done;
    if (mark && !answerLost(*mark))
        return State::missing;
    if (!mark && laterStands(figure)) {
        found(figure);
        return State::done;
    }
    if (!mark && (!m_journaled.powerCut || earlierRowLacks(figure)))
        return State::missing;
    if (m_sale.addend(figure) == 0.0)
        return State::missing; // raising it by nothing does no harm
    const auto now = LedgerSale::figureIn(figure, m_writer.read(m_sale.quotable().reading(figure)));
    std::optional<bool> written;
    if (mark)
        written = toldByValue(figure, *mark, now);
    if (!written && !now) // no record of the month: nothing was inserted
        written = false;
    if (!written)
        return askUser(figure, *now);
    if (*written)
        found(figure);
    return *written ? State::done : State::missing;
}

/// What comes behind a figure is sent after it, whatever became of the figure's own answer.
bool Completion::laterStands(const Record &figure)
{
    const auto place = std::find(m_records.begin(), m_records.end(), figure);
    return std::any_of(std::next(place), m_records.end(),
                       [this](const Record &record) { return stateOf(record) == State::done; });
}

/// The journal lacks the end of a posting when the power went. A row that it does not know of and
/// that does not stand was never sent, and neither was what comes behind it.
bool Completion::earlierRowLacks(const Record &figure)
{
    const auto place = std::find(m_records.begin(), m_records.end(), figure);
    return std::any_of(m_records.begin(), place, [this](const Record &record) {
        return record.isRow() && !markOf(record) && stateOf(record) != State::done;
    });
}

std::optional<bool> Completion::toldByLaterLine(const Record &figure, double from)
{
    const QString reading = m_sale.reading(figure);
    const auto place = std::find(m_records.begin(), m_records.end(), figure);
    for (auto later = std::next(place); later != m_records.end(); ++later) {
        const RecordMark *mark = later->isRow() ? nullptr : markOf(*later);
        if (!mark || !mark->from || m_sale.reading(*later) != reading)
            continue;
        if (same(*mark->from, from + m_sale.addend(figure)))
            return true;
        if (same(*mark->from, from))
            return false;
    }
    return {};
}

std::optional<bool> Completion::toldByValue(const Record &figure, const RecordMark &mark,
                                            const std::optional<double> &now)
{
    const double from = mark.from.value_or(0.0);
    if (const auto told = toldByLaterLine(figure, from))
        return told;
    const QString &own = row_search::ownMovement(m_sale, figure);
    const RecordSet last = m_writer.read(row_search::lastMovement(m_sale.quotable(), figure));
    const bool movedSince =
        own.isEmpty() || (!last.eof() && last.number(u"TOTAL") > own.toDouble());
    if (movedSince)
        return {};
    if (now && same(*now, from + m_sale.addend(figure)))
        return true;
    if (now ? mark.from && same(*now, from) : !mark.from)
        return false;
    return {};
}

Completion::State Completion::askUser(const Record &figure, double now)
{
    const QString stays = amount::plain(now);
    const QString raised = amount::plain(now + m_sale.addend(figure));
    const Message question{
        u"%1 tarihli, %2 tutarındaki satışın bir kaydının yanıtı alınamamıştı:\n%3\n\n"
        "Defterde şimdi %4 var. Kayıt yazılmışsa %4 olarak kalmalı, yazılmamışsa %5 olmalı.\n\n"
        "Bu kayıt yazılmış mı?\nEVET: %4 kalır.  HAYIR: %5 yapılır.  Esc: sonra karar verilir."_s
            .arg(m_journaled.sale.moment.toString(u"dd.MM.yyyy HH:mm"_s),
                 m_journaled.sale.totals.grand, m_sale.name(figure), stays, raised),
        u"ONAY"_s, 3, 2};
    switch (m_prompt.show(question)) {
    case Answer::yes:
        found(figure);
        return State::done;
    case Answer::no:
        return State::missing;
    default:
        m_result.undecided = true;
        return State::undecided;
    }
}

/// From here on the journal knows it too, and nobody is asked again.
void Completion::found(const Record &record)
{
    m_log.answered(record, Sent::done, u"defterde bulundu"_s);
    m_journaled.marks[record.key()].sent = Sent::done;
}

// ---- numbers

/// A reference that nothing was written under is drawn anew when the table has gone beyond it.
void Completion::settleReference(Document document)
{
    for (const Record &record : m_records) {
        const auto of = LedgerSale::referencesOf(record);
        if (std::find(of.begin(), of.end(), document) != of.end() && stateOf(record) == State::done)
            return;
    }
    const RecordSet highest = m_writer.read(LedgerSale::highestReference(document));
    const double last = highest.eof() ? 0.0 : highest.number(u"TOTAL");
    const QString &reference = m_sale.reference(document);
    if (!reference.isEmpty() && last < reference.toDouble())
        return;
    m_sale.setReference(document, QString::number(last + 1.0, 'f', 0));
    for (const Record &record : m_records) {
        const auto of = LedgerSale::referencesOf(record);
        if (std::find(of.begin(), of.end(), document) != of.end())
            stateOf(record) = State::missing;
    }
}

/// So is a document number, unless its counter was advanced for this sale.
void Completion::settleNumber(Document document)
{
    const auto place = static_cast<std::size_t>(document);
    const RecordMark *advanced = markOf(LedgerSale::counterRecords().at(place));
    if (advanced && advanced->sent == Sent::done)
        return;
    for (const Record &record : m_records)
        if (LedgerSale::bearsNumber(record, document) && stateOf(record) == State::done)
            return;
    m_sale.setDrawn(document, LedgerSale::drawnFrom(m_writer.read(
                                  ledger::counterRow(LedgerSale::counter(document)))));
}

// ---- writing

/// Goes on with the next when one fails, as the posting does.
template <typename Step>
void Completion::step(const Record &record, Step &&body)
{
    m_writer.beginStep();
    try {
        body();
    } catch (const HostError &error) {
        m_result.connectionLost |= error.connectionLost();
        const bool neverSent = m_writer.failed(record, error) == Sent::withheld && !markOf(record);
        if (neverSent) // else a later row would say next time that it was
            m_log.answered(record, Sent::withheld, error.text());
        m_result.missing += u"%1: yazılamadı (%2)"_s.arg(m_sale.name(record), error.text());
    }
}

void Completion::write(const Record &record)
{
    switch (stateOf(record)) {
    case State::done:
        return;
    case State::foreign:
        m_result.missing += u"%1: kayıt numarası başka bir belgede, muhasebede düzeltilmeli"_s.arg(
            m_sale.name(record));
        return;
    default:
        break;
    }
    step(record, [&] { m_writer.write(m_sale.quotable(), record); });
}

void Completion::advance(Document document)
{
    const auto place = static_cast<std::size_t>(document);
    const Record record = LedgerSale::counterRecords().at(place);
    const RecordMark *mark = markOf(record);
    if (mark && mark->sent == Sent::done)
        return;
    const ledger::Drawn &drawn = m_sale.drawn(document);
    if (!drawn.readable) {
        m_result.missing +=
            u"%1 okunamamıştı: belgesi numarasız yazıldı, muhasebede numara verin"_s.arg(
                m_sale.name(record));
        return;
    }
    step(record, [&] {
        const RecordSet row = m_writer.read(ledger::counterRow(LedgerSale::counter(document)));
        if (row.eof() || qRound64(row.number(u"EVRNO")) != drawn.value)
            found(record); // advanced by this sale or another, or begun anew
        else
            m_writer.send(record, ledger::advanceCounter(LedgerSale::counter(document),
                                                         m_sale.nextValue(document)));
    });
}

/// Before this sale's counters were advanced another till may have drawn its numbers. Both
/// documents stand then, and only somebody at the ledger can give one of them another number.
void Completion::tellDouble(Document document)
{
    if (m_sale.drawn(document).number.isEmpty())
        return;
    const Record slip = LedgerSale::slipOf(document);
    const Record number = LedgerSale::numberOf(document);
    QStringList others;
    bool own = false;
    try {
        RecordSet rows = m_writer.read(row_search::byNumber(m_sale, slip));
        for (; !rows.eof(); rows.moveNext())
            if (row_search::referenceIn(slip, rows) == m_sale.reference(document) &&
                row_search::isOurs(m_sale, slip, rows))
                own = true;
            else if (row_search::isTills(m_sale, slip, rows))
                others += row_search::told(slip, rows);
    } catch (const HostError &error) {
        if (error.connectionLost())
            throw;
        return; // what may not be read tells nothing
    }
    if (own && !others.isEmpty()) {
        const QString words = u"aynı numarada "_s + others.join(u"; "_s);
        m_log.answered(number, Sent::refused, words);
        m_result.doubled += u"%1: %2"_s.arg(m_sale.name(number), words);
    } else if (markOf(number)) {
        m_log.answered(number, Sent::done, {});
    }
}
