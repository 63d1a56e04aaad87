#pragma once

#include "labels/desk/print_queue.h"

/// A print queue as a file: a table that a spreadsheet opens too.
namespace queue_file {

struct Content
{
    std::vector<QueueRow> rows;
    std::vector<int> added; ///< see RowTable::placesAdded()
    int damaged = 0;        ///< lines that cannot be read

    friend bool operator==(const Content &, const Content &) = default;
};

QString text(const std::vector<QueueRow> &rows, const std::vector<int> &added);

/// The rows of a file, as far as they can be read.
Content read(const QByteArray &bytes);

} // namespace queue_file
