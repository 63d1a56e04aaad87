#include "tour/ledger_rows.h"

#include "common/host_connection.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// In the order a sale writes them.
constexpr std::array<QStringView, 12> kTables = {
    u"STKFIS",  u"STKKART", u"STKMIZDEGER", u"STKHAR",       u"CARFIS", u"CARMIZDEGER",
    u"CARKART", u"FATFIS",  u"FATHAR",      u"FATFISTOPLAM", u"CARHAR", u"EVRAKNO"};

QStringList without(QStringList rows, const QStringList &others)
{
    for (const QString &row : others)
        rows.removeOne(row);
    return rows;
}

} // namespace

LedgerRows::LedgerRows(HostConnection &host)
{
    for (const QStringView name : kTables) {
        RecordSet found = host.execute(u"select * from %1"_s.arg(name));
        Table table{found.columns().join(u'|'), {}};
        for (; !found.eof(); found.moveNext()) {
            QStringList fields;
            for (const QString &column : found.columns())
                fields += found.text(column);
            table.rows += fields.join(u'|');
        }
        m_tables.insert(name.toString(), table);
    }
}

QString LedgerRows::changedSince(const LedgerRows &before) const
{
    QString text;
    for (const QStringView name : kTables) {
        const Table now = m_tables.value(name.toString());
        const QStringList earlier = before.m_tables.value(name.toString()).rows;
        const QStringList gone = without(earlier, now.rows);
        const QStringList came = without(now.rows, earlier);
        if (gone.isEmpty() && came.isEmpty())
            continue;
        text += u"%1\n  %2\n"_s.arg(name, now.columns);
        for (const QString &row : gone)
            text += u"- "_s + row + u'\n';
        for (const QString &row : came)
            text += u"+ "_s + row + u'\n';
        text += u'\n';
    }
    return text;
}
