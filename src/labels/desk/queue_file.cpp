#include "labels/desk/queue_file.h"

#include "common/amount.h"
#include "labels/desk/csv_text.h"

#include <QDateTime>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace queue_file {

namespace {

const QString kMomentFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

/// Fields without which there is no row; the place among the rows as added may be missing.
constexpr qsizetype kNeeded = 9;

const QStringList &captions()
{
    static const QStringList all = {u"Barkod"_s,
                                    u"Stok Kodu"_s,
                                    u"Stok Adı"_s,
                                    u"Birim"_s,
                                    u"Fiyat"_s,
                                    u"Adet"_s,
                                    u"İm"_s,
                                    u"Basıldı"_s,
                                    u"Fiyatın okunduğu an"_s,
                                    u"Eklenme sırası"_s};
    return all;
}

QString moment(qint64 since1970)
{
    return since1970 == 0 ? QString()
                          : QDateTime::fromMSecsSinceEpoch(since1970).toString(kMomentFormat);
}

std::optional<QueueRow> readRow(const QStringList &fields)
{
    if (fields.size() < kNeeded)
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

/// Places among all as added; nothing when they are none or the rows stand that way.
std::vector<int> placesAdded(const std::vector<int> &numbers)
{
    std::vector<int> sorted = numbers;
    std::sort(sorted.begin(), sorted.end());
    const bool areAllOthers = std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
    return areAllOthers && sorted != numbers ? numbers : std::vector<int>();
}

} // namespace

QString text(const std::vector<QueueRow> &rows, const std::vector<int> &added)
{
    QString text = csv::line(captions());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QueueRow &row = rows[i];
        const auto place = added.empty() ? static_cast<int>(i) : added[i];
        text +=
            csv::line({row.barcode, row.code, row.name, row.unitName, row.price,
                       QString::number(row.count), row.tag(), row.printed ? u"evet"_s : QString(),
                       moment(row.priceRead), QString::number(place + 1)});
    }
    return text;
}

Content read(const QByteArray &bytes)
{
    Content content;
    for (const csv::Line &line : csv::read(csv::decode(bytes))) {
        if (line.fields.first() == captions().first())
            continue;
        if (const auto row = readRow(line.fields)) {
            content.rows.push_back(*row);
            content.added.push_back(line.fields.value(kNeeded).toInt() - 1);
        } else {
            ++content.damaged;
        }
    }
    content.added = placesAdded(content.added);
    return content;
}

} // namespace queue_file
