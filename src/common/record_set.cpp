#include "common/record_set.h"

#include "common/amount.h"
#include "common/host_error.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {

/// Looks for a name from `at` on and round the end and leaves `at` there; false when there is none.
bool seek(const QStringList &names, QStringView wanted, Qt::CaseSensitivity care, qsizetype &at)
{
    for (qsizetype tried = 0; tried < names.size(); ++tried) {
        const QString &name = names.at(at);
        if (name.size() == wanted.size() &&
            (care == Qt::CaseSensitive ? name == wanted : wanted.compare(name, care) == 0))
            return true;
        at = at + 1 < names.size() ? at + 1 : 0;
    }
    return false;
}

} // namespace

RecordSet::RecordSet(QStringList columns, std::vector<Row> rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows))
{}

const QVariant &RecordSet::value(QStringView column) const
{
    if (eof())
        throw HostError(HostError::kNoRow, u"Okunacak kayıt yok."_s);
    // Rows are read field by field in much the same order, so the search goes on where the last one
    // ended: a ledger table has a hundred columns, and a list of all stocks a hundred thousand
    // rows.
    // Most names are asked for as they are spelled.
    if (seek(m_columns, column, Qt::CaseSensitive, m_lastColumn) ||
        seek(m_columns, column, Qt::CaseInsensitive, m_lastColumn))
        return m_rows[m_at].at(static_cast<std::size_t>(m_lastColumn));
    throw HostError(HostError::kNoColumn, u"Sütun bulunamadı: %1"_s.arg(column));
}

QString RecordSet::text(QStringView column) const
{
    return toText(value(column));
}

double RecordSet::number(QStringView column) const
{
    const QVariant &field = value(column);
    if (field.typeId() == QMetaType::Double)
        return field.toDouble();
    if (field.isNull())
        return 0.0;
    if (field.typeId() != QMetaType::QString)
        return field.toDouble();
    if (const auto parsed = amount::parse(field.toString()))
        return *parsed;
    throw HostError(HostError::kType,
                    u"%1 sütununda sayı yerine metin var: %2"_s.arg(column, field.toString()));
}

QString RecordSet::toText(const QVariant &value)
{
    switch (value.isNull() ? QMetaType::UnknownType : value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Double:
        return amount::plain(value.toDouble());
    case QMetaType::QDate:
        return value.toDate().toString(u"dd.MM.yyyy"_s);
    case QMetaType::QDateTime: {
        const QDateTime moment = value.toDateTime();
        const bool midnight = moment.time() == QTime(0, 0);
        return moment.toString(midnight ? u"dd.MM.yyyy"_s : u"dd.MM.yyyy HH:mm:ss"_s);
    }
    default:
        return value.toString();
    }
}
