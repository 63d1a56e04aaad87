#pragma once

#include <QStringList>
#include <QVariant>

#include <vector>

/// The rows one statement returned, read forward field by field. The whole result is held here: the
/// connection is free for the next statement as soon as this object exists.
///
/// A field is one of: null, a whole number (qlonglong), a number (double), a date (QDate), a date
/// with time (QDateTime), or text (QString).
class RecordSet
{
public:
    using Row = std::vector<QVariant>;

    RecordSet() = default;
    RecordSet(QStringList columns, std::vector<Row> rows);

    bool eof() const { return m_at >= m_rows.size(); }
    void moveNext() { ++m_at; }
    qsizetype rowCount() const { return static_cast<qsizetype>(m_rows.size()); }
    const QStringList &columns() const { return m_columns; }

    /// The field as the engine gave it. Column names compare without regard to case. Throws
    /// HostError kNoColumn or kNoRow.
    const QVariant &value(QStringView column) const;

    /// The field as text in Turkish form: null → "", 12.5 → "12,5", dates "dd.MM.yyyy" (with
    /// " HH:mm:ss" when there is a time). Throws as value().
    QString text(QStringView column) const;

    /// The field as a number; null → 0. Text is read with a decimal comma. Throws as value(), and
    /// kType for other text.
    double number(QStringView column) const;

    /// Text form of one field value, as text() gives it.
    static QString toText(const QVariant &value);

private:
    QStringList m_columns;
    std::vector<Row> m_rows;
    std::size_t m_at = 0;
    mutable qsizetype m_lastColumn = 0; ///< where the last field was found
};
