#include "labels/desk/queue_labels.h"

#include "common/amount.h"

std::vector<LabelRow> labelRows(const PrintQueue &queue)
{
    std::vector<LabelRow> rows;
    rows.reserve(queue.rows().size());
    for (const QueueRow &row : queue.rows())
        rows.push_back({row.barcode, row.code, row.name, row.price,
                        amount::labelCount(row.count).value_or(0)});
    return rows;
}
