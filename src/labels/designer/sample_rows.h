#pragma once

#include "common/clock.h"
#include "common/host_connection.h"
#include "labels/layout/label_layout.h"
#include "labels/print/label_row.h"

#include <optional>

/// The stocks whose values the design shows: those that were searched or queued, or else made-up
/// ones, a long name and a short number among them.
class SampleRows
{
public:
    /// Both are kept by reference.
    SampleRows(CompanyDatabase &company, Clock &clock) : m_company(company), m_clock(clock) {}

    /// An empty list shows the made-up stocks.
    void set(const std::vector<LabelRow> &rows);
    void step(int by);

    LabelRow current(const LabelLayout &layout) const;
    std::vector<LabelRow> all(const LabelLayout &layout) const;
    QString place() const; ///< which of how many, for the user

    /// Reads what the layout's texts need of the stocks; false when that is nothing new. Throws
    /// HostError; what failed is not asked again.
    bool readFor(const LabelLayout &layout);

    /// The columns of the stock card, read at the first call; none while the host is away.
    const QStringList &columns();

private:
    LabelRow madeUp(std::size_t stock, const LabelLayout &layout) const;

    CompanyDatabase &m_company;
    Clock &m_clock;
    std::vector<LabelRow> m_rows;
    std::size_t m_at = 0;
    QStringList m_read; ///< fields that the rows have
    std::optional<QStringList> m_columns;
};
