#include "sales/posting.h"

#include "common/program.h"
#include "common/resume_next.h"
#include "sales/ledger_writer.h"

using namespace Qt::StringLiterals;

namespace {

using ledger::Document;
using ledger::Record;

/// The documents that bear a counter's number.
QString bearersOf(Document document)
{
    switch (document) {
    case Document::stock:
        return u"stok fişi ve faturadaki fiş bağı"_s;
    case Document::account:
        return u"cari fişi"_s;
    default:
        return u"fatura, fatura toplamları ve cari hareketi"_s;
    }
}

/// One posting under way.
class Posting
{
public:
    Posting(Program &program, const Settings &settings, const Sale &sale, PostingProgress &progress,
            PostingLog &log)
        : m_program(program), m_progress(progress), m_log(log), m_writer(program, log),
          m_sale(settings, sale)
    {
        m_log.begun(sale, m_sale);
        constexpr int ofEverySale = 20;
        constexpr int ofEveryLine = 7;
        m_progress = {0, ofEverySale + ofEveryLine * static_cast<int>(sale.lines.size())};
    }

    PostingResult run()
    {
        resumeNext([&] { m_program.company(); }); // brings a lost connection back
        for (const Document document : ledger::kDocuments)
            draw(document);
        for (const Record &record : m_sale.records()) {
            for (const Document document : ledger::kDocuments)
                if (record == ledger::LedgerSale::slipOf(document))
                    drawReference(document);
            write(record);
        }
        for (const Document document : ledger::kDocuments)
            advance(document);
        m_result.written = m_writer.written();
        m_log.ended(m_result);
        return m_result;
    }

private:
    /// Numbers of documents hang on these: a read that failed is tried once more.
    RecordSet readStubbornly(const QString &statement)
    {
        RecordSet rows;
        if (!resumeNext([&] { rows = m_writer.read(statement); }))
            rows = m_writer.read(statement);
        return rows;
    }

    /// One step of the posting; the next goes on when it fails, and `missing` notes what the ledger
    /// lacks then. A value that could not be read is never written back as if it were 0.
    template <typename Step, typename Missing>
    void step(Step &&body, Missing &&missing)
    {
        ++m_progress.step;
        m_writer.beginStep();
        resumeNext([&] {
            try {
                body();
            } catch (const HostError &error) {
                m_result.connectionLost |= error.connectionLost();
                missing(error);
                throw;
            }
        });
    }

    /// Logs what became of a record. A write whose answer was lost may have been done.
    bool uncertain(const Record &record, const HostError &error)
    {
        const Sent sent = m_writer.failed(record, error);
        if (sent == Sent::withheld)
            m_log.answered(record, sent, error.text());
        m_result.uncertain += sent == Sent::unknown ? 1 : 0;
        return sent == Sent::unknown;
    }

    void write(const Record &record)
    {
        step([&] { m_writer.write(m_sale, record); },
             [&](const HostError &error) {
                 const QString name = m_sale.name(record);
                 m_result.records += uncertain(record, error)
                                         ? u"%1: yazılmamış olabilir"_s.arg(name)
                                         : u"%1: yazılamadı (%2)"_s.arg(name, error.text());
             });
    }

    void draw(Document document)
    {
        const auto readRow = [&] {
            const RecordSet row =
                readStubbornly(ledger::counterRow(ledger::LedgerSale::counter(document)));
            if (row.eof())
                m_program.warn(u"Evrakno Hatası..."_s);
            m_sale.setDrawn(document, ledger::LedgerSale::drawnFrom(row));
        };
        step(readRow, [&](const HostError &error) {
            m_sale.setDrawn(document, {});
            m_result.counters += u"%1 sayacı okunamadı ve ilerletilmedi: %2 numarasız (%3)"_s.arg(
                ledger::LedgerSale::counterName(document), bearersOf(document), error.text());
        });
        if (document == ledger::kDocuments.back())
            m_log.drawn(m_sale);
    }

    /// A counter that could not be read is left alone: advancing it from nothing would hand out
    /// old numbers again.
    void advance(Document document)
    {
        const auto place = static_cast<std::size_t>(document);
        const Record record = ledger::LedgerSale::counterRecords().at(place);
        const auto writeNext = [&] {
            if (m_sale.drawn(document).readable)
                m_writer.send(record, ledger::advanceCounter(ledger::LedgerSale::counter(document),
                                                             m_sale.nextValue(document)));
        };
        step(writeNext, [&](const HostError &error) {
            const QString text =
                uncertain(record, error)
                    ? u"%1 sayacı ilerletilmemiş olabilir: %2 numarası yeniden verilebilir"_s
                    : u"%1 sayacı ilerletilemedi: %2 numarası sonraki satışa yeniden verilir"_s;
            m_result.counters +=
                text.arg(ledger::LedgerSale::counterName(document), m_sale.drawn(document).number);
        });
    }

    /// The next reference number of a table. When it cannot be read the number stays empty, and
    /// what needs it is not sent.
    void drawReference(Document document)
    {
        const auto readHighest = [&] {
            const RecordSet highest =
                readStubbornly(ledger::LedgerSale::highestReference(document));
            const double last = highest.eof() ? 0.0 : highest.number(u"TOTAL");
            m_sale.setReference(document, QString::number(last + 1.0, 'f', 0));
            m_log.drawn(m_sale);
        };
        step(readHighest, [](const HostError &) {});
    }

    Program &m_program;
    PostingProgress &m_progress;
    PostingLog &m_log;
    LedgerWriter m_writer;
    ledger::LedgerSale m_sale;
    PostingResult m_result;
};

} // namespace

PostingResult faturakaydet(Program &program, const Settings &settings, const Sale &sale,
                           PostingProgress &progress, PostingLog &log)
{
    return Posting(program, settings, sale, progress, log).run();
}

PostingResult faturakaydet(Program &program, const Settings &settings, const Sale &sale,
                           PostingProgress &progress)
{
    PostingLog none;
    return faturakaydet(program, settings, sale, progress, none);
}
