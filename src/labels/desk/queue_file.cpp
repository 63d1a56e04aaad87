#include "labels/desk/queue_file.h"

#include "common/amount.h"
#include "labels/desk/csv_text.h"

#include <QDateTime>

#include <optional>

using namespace Qt::StringLiterals;

namespace queue_file {

namespace {

const QString kMomentFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

const QStringList &captions()
{
    static const QStringList all = {u"Barkod"_s, u"Stok Kodu"_s, u"Stok Adı"_s,
                                    u"Birim"_s,  u"Fiyat"_s,     u"Adet"_s,
                                    u"İm"_s,     u"Basıldı"_s,   u"Fiyatın okunduğu an"_s};
    return all;
}

QString moment(qint64 since1970)
{
    return since1970 == 0 ? QString()
                          : QDateTime::fromMSecsSinceEpoch(since1970).toString(kMomentFormat);
}

std::optional<QueueRow> readRow(const QStringList &fields)
{
    if (fields.size() < captions().size())
        return std::nullopt;
    QueueRow row;
    row.barcode = fields.at(0);
    row.code = fields.at(1);
    row.name = fields.at(2);
    row.unitName = fields.at(3);
    row.price = fields.at(4);
    const auto count = amount::labelCount(fields.at(5));
    if (!count || !row.setTag(fields.at(6)))
        return std::nullopt;
    row.count = *count;
    row.printed = !fields.at(7).isEmpty();
    const QDateTime read = QDateTime::fromString(fields.at(8), kMomentFormat);
    row.priceRead = read.isValid() ? read.toMSecsSinceEpoch() : 0;
    return row;
}

} // namespace

QByteArray write(const std::vector<QueueRow> &rows)
{
    QString text = csv::line(captions());
    for (const QueueRow &row : rows)
        text += csv::line({row.barcode, row.code, row.name, row.unitName, row.price,
                           QString::number(row.count), row.tag(),
                           row.printed ? u"evet"_s : QString(), moment(row.priceRead)});
    return "\xEF\xBB\xBF" + text.toUtf8(); // else spreadsheets take it for another code page
}

std::vector<QueueRow> read(const QByteArray &bytes, int &damaged)
{
    std::vector<QueueRow> rows;
    damaged = 0;
    for (const csv::Line &line : csv::read(csv::decode(bytes))) {
        if (line.fields == captions())
            continue;
        if (const auto row = readRow(line.fields))
            rows.push_back(*row);
        else
            ++damaged;
    }
    return rows;
}

} // namespace queue_file
