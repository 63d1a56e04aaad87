#include "labels/desk/csv_text.h"

#include "common/turkish.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace csv {

namespace {

bool needsQuotes(const QString &field)
{
    return field.contains(u';') || field.contains(u'"') || field.contains(u'\n') ||
           field.contains(u'\r') || field != field.trimmed();
}

/// Reads a text character by character; quotes may enclose separators and line ends.
class Reader
{
public:
    explicit Reader(const QString &text) : m_text(text) {}

    std::vector<Line> lines()
    {
        while (m_at < m_text.size())
            readLine();
        return std::move(m_lines);
    }

private:
    void readLine()
    {
        const int number = m_number;
        const QChar separator = separatorHere();
        QStringList fields;
        bool empty = true;
        do {
            fields += field(separator);
            empty = empty && fields.last().isEmpty();
        } while (m_at < m_text.size() && m_text.at(m_at) == separator && ++m_at <= m_text.size());
        skipLineEnd();
        if (!empty)
            m_lines.push_back({number, fields});
    }

    QChar separatorHere() const
    {
        bool comma = false;
        bool tab = false;
        bool quoted = false;
        for (qsizetype i = m_at; i < m_text.size(); ++i) {
            const QChar c = m_text.at(i);
            if (c == u'"')
                quoted = !quoted;
            else if (quoted)
                continue;
            else if (c == u';')
                return c;
            else if (c == u'\n' || c == u'\r')
                break;
            tab = tab || c == u'\t';
            comma = comma || c == u',';
        }
        if (tab)
            return u'\t';
        return comma ? u',' : u';';
    }

    QString field(QChar separator)
    {
        QString text;
        bool quoted = false;
        bool wasQuoted = false;
        for (; m_at < m_text.size(); ++m_at) {
            const QChar c = m_text.at(m_at);
            if (quoted && c == u'"' && m_text.mid(m_at, 2) == u"\"\"") {
                ++m_at;
            } else if (c == u'"' && (quoted || text.trimmed().isEmpty())) {
                quoted = !quoted;
                wasQuoted = true;
                continue;
            } else if (!quoted && (c == separator || c == u'\n' || c == u'\r')) {
                break;
            }
            if (c == u'\n')
                ++m_number;
            text += c;
        }
        return wasQuoted ? text : text.trimmed();
    }

    void skipLineEnd()
    {
        if (m_at < m_text.size() && m_text.at(m_at) == u'\r')
            ++m_at;
        if (m_at < m_text.size() && m_text.at(m_at) == u'\n')
            ++m_at;
        ++m_number;
    }

    const QString &m_text;
    qsizetype m_at = 0;
    int m_number = 1;
    std::vector<Line> m_lines;
};

} // namespace

QString line(const QStringList &fields)
{
    QStringList written;
    for (QString field : fields)
        written += needsQuotes(field) ? u'"' + field.replace(u'"', u"\"\""_s) + u'"' : field;
    return written.join(u';') + u'\n';
}

std::vector<Line> read(const QString &text)
{
    return Reader(text).lines();
}

QString decode(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes); // without the byte order mark
    return utf8.hasError() ? turkish::fromCodePage1254(bytes) : text;
}

} // namespace csv
