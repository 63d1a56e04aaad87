#include "labels/desk/count_import.h"

#include "common/host_connection.h"
#include "common/host_queries.h"
#include "common/select_many.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostLabels = 999'999;

/// A code of the file, with what is known of it.
struct Wanted
{
    count_file::Line line;   ///< the first that names the code, with the labels of all of them
    std::vector<int> others; ///< numbers of the other lines that name it
    QString stockCode;       ///< owner of the barcode; "" when the code is none
    int unit = 0;            ///< of the barcode
};

std::vector<Wanted> summedUp(const std::vector<count_file::Line> &lines)
{
    std::vector<Wanted> all;
    QHash<QString, std::size_t> places;
    for (const count_file::Line &line : lines) {
        const auto known = places.constFind(line.code);
        if (known == places.constEnd()) {
            places.insert(line.code, all.size());
            all.push_back({line, {}, {}, 0});
        } else {
            Wanted &wanted = all[*known];
            wanted.line.count = std::min(wanted.line.count + line.count, kMostLabels);
            wanted.others.push_back(line.number);
        }
    }
    return all;
}

void takeOwner(RecordSet owners, Wanted &wanted)
{
    for (; !owners.eof(); owners.moveNext()) {
        wanted.stockCode = owners.text(u"STKBARSTKKOD");
        wanted.unit = owners.text(u"STKBARBRMNO").trimmed().toInt();
    }
}

std::vector<StockRow> rowsOf(const Wanted &wanted, RecordSet cards, UnitChoice units)
{
    std::vector<StockRow> rows;
    for (; !cards.eof(); cards.moveNext())
        if (wanted.stockCode.isEmpty())
            appendUnitRows(cards, units, wanted.line.count, rows);
        else
            rows.push_back(scannedRow(cards, wanted.unit, wanted.line.count));
    return rows;
}

void addProblems(const Wanted &wanted, const QString &reason,
                 std::vector<count_file::Problem> &problems)
{
    const QString text = wanted.line.code + u": "_s + reason;
    problems.push_back({wanted.line.number, text});
    for (const int number : wanted.others)
        problems.push_back({number, text});
}

} // namespace

std::optional<std::vector<StockRow>>
findCounted(CompanyDatabase &database, const std::vector<count_file::Line> &lines, UnitChoice units,
            std::vector<count_file::Problem> &problems, const std::function<bool(int, int)> &goOn)
{
    std::vector<Wanted> all = summedUp(lines);
    const auto total = static_cast<int>(all.size());
    const auto wanted = [&](int i) -> Wanted & { return all[static_cast<std::size_t>(i)]; };
    const bool owned = selectMany(
        database, total, [&](int i) { return host_queries::barcode(wanted(i).line.code); },
        [&](int i, RecordSet owners) {
            takeOwner(std::move(owners), wanted(i));
            return goOn(i + 1, 2 * total);
        });
    if (!owned)
        return std::nullopt;
    std::vector<StockRow> found;
    const bool listed = selectMany(
        database, total,
        [&](int i) {
            const Wanted &one = wanted(i);
            return host_queries::card(one.stockCode.isEmpty() ? one.line.code : one.stockCode);
        },
        [&](int i, RecordSet cards) {
            const bool known = !cards.eof();
            const std::vector<StockRow> rows = rowsOf(wanted(i), std::move(cards), units);
            found.insert(found.end(), rows.cbegin(), rows.cend());
            if (rows.empty())
                addProblems(wanted(i), known ? u"seçili birimi yok"_s : u"bulunamadı"_s, problems);
            return goOn(total + i + 1, 2 * total);
        });
    return listed ? std::optional(std::move(found)) : std::nullopt;
}
