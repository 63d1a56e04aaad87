#include "labels/designer/sample_rows.h"

#include "common/amount.h"
#include "common/host_error.h"
#include "labels/print/label_builder.h"
#include "labels/print/label_fields.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct MadeUpStock
{
    QStringView code;
    QStringView name;
    QStringView barcode;
    QStringView price;
    QStringView oldPrice;
};

constexpr MadeUpStock kMadeUp[] = {
    {u"STK000123", u"Beyaz Peynir Tam Yağlı 500 g", u"8690000000012", u"129,90", u"149,90"},
    {u"STK000456", u"Sıvı Çamaşır Deterjanı Renkliler İçin Lavanta Kokulu 2,6 L", u"8690000000029",
     u"1.234,50", u"1.399,00"},
    {u"STK7", u"Su 0,5 L", u"86900010", u"9,50", u""}};

} // namespace

void SampleRows::set(const std::vector<LabelRow> &rows)
{
    m_rows = rows;
    m_at = 0;
    m_read.clear();
    if (m_columns && m_columns->isEmpty())
        m_columns.reset(); // the host may be back
}

void SampleRows::step(int by)
{
    const auto count =
        static_cast<std::ptrdiff_t>(m_rows.empty() ? std::size(kMadeUp) : m_rows.size());
    m_at = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(m_at) + by + count) % count);
}

LabelRow SampleRows::current(const LabelLayout &layout) const
{
    return m_rows.empty() ? madeUp(m_at, layout) : m_rows[m_at];
}

std::vector<LabelRow> SampleRows::all(const LabelLayout &layout) const
{
    return m_rows.empty() ? std::vector{madeUp(m_at, layout)} : m_rows;
}

/// A made-up stock; the first one bears the number that the layout's barcode has for a sample.
LabelRow SampleRows::madeUp(std::size_t stock, const LabelLayout &layout) const
{
    const MadeUpStock &made = kMadeUp[stock];
    LabelRow row;
    for (const QString &field : boundFields(layout))
        if (!m_columns || m_columns->isEmpty() || m_columns->contains(field, Qt::CaseInsensitive))
            row.fields.insert(field, field); // a column of the stock card
    for (const LabelField &field : labelFields())
        row.fields.insert(field.name, field.sample);
    row.stockCode = made.code.toString();
    row.stockName = made.name.toString();
    row.price = made.price.toString();
    row.fields.insert(kOldPriceField.toString(), made.oldPrice.toString());
    row.barcode = made.barcode.toString();
    row.unit = u"ADET"_s;
    if (stock == 0 && !layout.barcodes.empty() && !layout.barcodes.front().sample.isEmpty())
        row.barcode = layout.barcodes.front().sample;
    return row;
}

QString SampleRows::place() const
{
    const std::size_t count = m_rows.empty() ? std::size(kMadeUp) : m_rows.size();
    return u"%1%2 / %3"_s.arg(m_rows.empty() ? u"Örnek "_s : QString(),
                              amount::whole(static_cast<qint64>(m_at) + 1),
                              amount::whole(static_cast<qint64>(count)));
}

bool SampleRows::readFor(const LabelLayout &layout)
{
    QStringList wanted = boundFields(layout);
    if (!std::all_of(wanted.cbegin(), wanted.cend(), isNamedField))
        columns();
    wanted.removeIf([this](const QString &field) { return m_read.contains(field); });
    if (wanted.isEmpty())
        return false;
    m_read += wanted;
    if (!m_rows.empty())
        readFields(m_company, m_clock.now().date(), wanted, m_rows);
    return true;
}

const QStringList &SampleRows::columns()
{
    if (!m_columns) {
        m_columns.emplace();
        try {
            *m_columns = stockCardColumns(m_company);
        } catch (const HostError &) {
            // Away: the named fields remain, and the next search asks again.
        }
    }
    return *m_columns;
}
