#include "platform/demo/demo_text.h"

#include "common/amount.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace demo {

namespace {

struct Line
{
    int number;
    QString text;
};

/// The lines that count, without their ends.
std::vector<Line> readLines(const QByteArray &text)
{
    std::vector<Line> lines;
    int number = 0;
    for (QByteArray bytes : text.split('\n')) {
        ++number;
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        if (!bytes.isEmpty() && !bytes.startsWith('#'))
            lines.push_back({number, QString::fromUtf8(bytes)});
    }
    return lines;
}

bool isName(const QString &text)
{
    static const QRegularExpression pattern(u"^[A-Z][A-Z0-9_]*$"_s);
    return pattern.match(text).hasMatch();
}

std::optional<qsizetype> columnIndex(const Table &table, const QString &name)
{
    const auto it = std::find_if(table.columns.begin(), table.columns.end(),
                                 [&](const Column &column) { return column.name == name; });
    if (it == table.columns.end())
        return std::nullopt;
    return it - table.columns.begin();
}

/// Reads the type words of a schema line into the column.
bool readType(const QString &word, Column &column)
{
    static const QRegularExpression text(u"^metin\\((\\d{1,4})\\)$"_s);
    const auto match = text.match(word);
    if (match.hasMatch()) {
        column.type = Type::text;
        column.length = match.captured(1).toInt();
        return column.length > 0;
    }
    static const QHash<QString, Type> types = {{u"tam"_s, Type::integer},
                                               {u"sayi"_s, Type::number},
                                               {u"para"_s, Type::money},
                                               {u"tarih"_s, Type::date}};
    const auto it = types.find(word);
    if (it != types.end())
        column.type = *it;
    return it != types.end();
}

/// One line below a "tablo" line: a column or an index. Returns what is wrong with it, or "".
QString readTableLine(Table &table, const QStringList &words)
{
    if (words.first() == u"dizin"_s) {
        if (words.size() != 2 || !columnIndex(table, words.last()))
            return u"\"dizin\" tablonun bir sütununu ister"_s;
        table.indexes += words.last();
        return {};
    }
    Column column;
    column.name = words.first();
    column.key = words.size() == 3 && words.last() == u"anahtar"_s;
    if (!isName(column.name) || columnIndex(table, column.name))
        return u"sütun adı geçersiz veya ikinci kez var: %1"_s.arg(column.name);
    if (words.size() != (column.key ? 3 : 2) || !readType(words.at(1), column))
        return u"sütun türü anlaşılmadı"_s;
    table.columns.push_back(column);
    return {};
}

std::optional<Field> readDate(const QString &text)
{
    static const QRegularExpression relative(u"^bugün(?:-(\\d{1,5}))?$"_s);
    const auto match = relative.match(text);
    if (match.hasMatch())
        return DaysAgo{match.captured(1).toInt()};
    const QDate date = QDate::fromString(text, u"dd.MM.yyyy"_s);
    if (!date.isValid() || date.year() < 1753)
        return std::nullopt;
    return date;
}

std::optional<Field> readInteger(const QString &text)
{
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok);
    if (!ok || number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return std::nullopt;
    return number;
}

std::optional<Field> readField(const Column &column, const QString &text)
{
    if (column.type == Type::text)
        return text.size() <= column.length ? std::optional<Field>(text) : std::nullopt;
    if (text.isEmpty())
        return Field();
    if (column.type == Type::integer)
        return readInteger(text);
    if (column.type == Type::date)
        return readDate(text);
    if (const auto number = amount::parse(text))
        return *number;
    return std::nullopt;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw TextError(path, 0, u"dosya okunamadı"_s);
    return file.readAll();
}

} // namespace

TextError::TextError(const QString &file, int line, const QString &what)
    : std::runtime_error(u"%1, satır %2: %3"_s.arg(file, QString::number(line), what).toStdString())
{}

std::vector<Table> readSchema(const QByteArray &text, const QString &file)
{
    std::vector<Table> tables;
    for (const Line &line : readLines(text)) {
        const QStringList words = line.text.simplified().split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty())
            continue;
        if (words.first() == u"tablo"_s) {
            if (words.size() != 2 || !isName(words.last()))
                throw TextError(file, line.number, u"tablo adı geçersiz"_s);
            tables.emplace_back().name = words.last();
            continue;
        }
        if (tables.empty())
            throw TextError(file, line.number, u"önce \"tablo\" satırı gelmeli"_s);
        if (const QString fault = readTableLine(tables.back(), words); !fault.isEmpty())
            throw TextError(file, line.number, fault);
    }
    return tables;
}

void readRows(Table &table, const QByteArray &text, const QString &file)
{
    table.file = file;
    std::vector<Line> lines = readLines(text);
    if (lines.empty())
        return;
    std::vector<std::size_t> order;
    for (const QString &name : lines.front().text.split(u'|')) {
        const auto index = columnIndex(table, name);
        if (!index || std::find(order.begin(), order.end(), *index) != order.end())
            throw TextError(file, lines.front().number, u"sütun yok veya ikinci kez: "_s + name);
        order.push_back(static_cast<std::size_t>(*index));
    }
    for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
        const QStringList fields = line->text.split(u'|');
        if (fields.size() != static_cast<qsizetype>(order.size()))
            throw TextError(file, line->number,
                            u"%1 alan olmalı, %2 var"_s.arg(order.size()).arg(fields.size()));
        Row row{line->number, std::vector<Field>(table.columns.size())};
        for (std::size_t i = 0; i < order.size(); ++i) {
            const Column &column = table.columns[order[i]];
            const QString &fieldText = fields.at(static_cast<qsizetype>(i));
            auto field = readField(column, fieldText);
            if (!field)
                throw TextError(file, line->number,
                                u"%1 sütununa uymuyor: \"%2\""_s.arg(column.name, fieldText));
            row.fields[order[i]] = *std::move(field);
        }
        table.rows.push_back(std::move(row));
    }
}

std::vector<Table> readFolder(const QString &folder)
{
    const QString schema = folder + u"/sema.txt"_s;
    std::vector<Table> tables = readSchema(readFile(schema), schema);
    QStringList files = QDir(folder).entryList({u"*.txt"_s}, QDir::Files);
    files.removeAll(u"sema.txt"_s);
    for (Table &table : tables)
        if (const QString name = table.name + u".txt"_s; files.removeAll(name) > 0)
            readRows(table, readFile(folder + u'/' + name), folder + u'/' + name);
    if (!files.isEmpty())
        throw TextError(folder + u'/' + files.first(), 0, u"sema.txt içinde böyle bir tablo yok"_s);
    return tables;
}

} // namespace demo
