#pragma once

#include "common/record_set.h"
#include "sales/posting_statements.h"
#include "sales/sale.h"

#include <optional>

struct Settings;

namespace ledger {

/// One record that a sale writes into the ledger.
struct Record
{
    enum class Kind
    {
        stockSlip,
        stockBalance,
        stockMonth,
        stockMovement,
        accountSlip,
        accountMonth,
        accountBalance,
        invoice,
        invoiceLine,
        invoiceSummary,
        accountMovement,
        counter,
        number ///< of a document: is written with its records, and must be borne by no other
    };

    Kind kind = Kind::stockSlip;
    int line = 0; ///< of the sale, from 1; 0: of no line
    int part = 0; ///< kind of a month figure, subject of a summary row, place of a document

    /// Rows are inserted once; the others add to a figure that stands in the ledger.
    bool isRow() const;

    /// "STKMIZDEGER/2/6": the same record in every run of the program.
    QString key() const;

    friend bool operator==(const Record &, const Record &) = default;
};

/// The three documents of a sale, each with a reference number of its own.
enum class Document
{
    stock,
    account,
    invoice
};
inline constexpr std::array<Document, 3> kDocuments = {Document::stock, Document::account,
                                                       Document::invoice};

/// A document counter as it was found. They are read and advanced in the order of kDocuments.
struct Drawn
{
    bool readable = false; ///< false: could not be read, and is not advanced
    qlonglong value = 0;
    QString number; ///< of the document; empty: none
};

/// A sale as the ledger gets it: its records in the order they are written, and their statements.
class LedgerSale
{
public:
    /// Grouping points in the sale's amounts are taken off, so that turning the comma into a point
    /// gives plain decimals.
    LedgerSale(const Settings &settings, Sale sale);

    /// A sale that was written down before. `counters`: in the order of kDocuments.
    LedgerSale(Header header, std::array<Drawn, 3> counters, Sale sale);

    const Sale &sale() const { return m_sale; }
    const Header &header() const { return m_header; }

    /// All but the counters and numbers.
    std::vector<Record> records() const;
    static std::array<Record, 3> counterRecords();
    static Record numberOf(Document document);

    /// The record that bears a document's reference first.
    static Record slipOf(Document document);
    const QString &reference(Document document) const;
    void setReference(Document document, const QString &reference);
    static QString highestReference(Document document);

    const Drawn &drawn(Document document) const;
    void setDrawn(Document document, const Drawn &drawn);
    static const Counter &counter(Document document);
    /// Takes what a counter's row says; none: a document without a number.
    static Drawn drawnFrom(const RecordSet &row);
    /// What the counter says after this sale.
    QString nextValue(Document document) const;

    /// The documents whose reference a record bears.
    static std::vector<Document> referencesOf(const Record &record);
    /// Whether a record bears the number that was drawn for a document.
    static bool bearsNumber(const Record &record, Document document);

    /// "Stok bakiyesi S1 (2 düşülecek)"
    QString name(const Record &record) const;
    /// "Fatura": whose counter it is.
    static QString counterName(Document document);

    /// The sale with its apostrophes doubled, as a literal of a statement bears them. The posting
    /// pastes names as they are, and a row whose name has one is refused.
    LedgerSale quotable() const;

    /// The statement of a row. Throws HostError when a reference number it needs could not be
    /// drawn: with 0 in its place the rows of a document would belong to any other that lost its
    /// number.
    QString insertion(const Record &record) const;

    /// The statement that reads what a figure adds to, and the column that holds it.
    QString reading(const Record &record) const;
    static QString figureColumn(const Record &record);
    /// What the sale adds; negative for a balance that falls.
    double addend(const Record &record) const;
    /// What stands in the ledger; nothing where there is no record yet.
    static std::optional<double> figureIn(const Record &record, const RecordSet &row);
    /// The statement that raises the figure. Throws HostError when the row lacks what must be
    /// there.
    QString raising(const Record &record, const RecordSet &row) const;

private:
    const SaleLine &lineOf(const Record &record) const;
    void makeSummaries();

    Sale m_sale;
    Header m_header;
    std::array<Drawn, 3> m_drawn;
    double m_grand;
    std::vector<Summary> m_summaries;
};

} // namespace ledger
