#pragma once

#include "labels/desk/print_queue.h"

#include <QByteArray>

/// A print queue as a file: a table that a spreadsheet opens too.
namespace queue_file {

QByteArray write(const std::vector<QueueRow> &rows);

/// The rows of a file, as far as they can be read. `damaged` counts those that cannot.
std::vector<QueueRow> read(const QByteArray &bytes, int &damaged);

} // namespace queue_file
