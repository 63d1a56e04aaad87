#pragma once

#include "labels/desk/print_queue.h"
#include "labels/print/label_row.h"

/// The queue as the print engine takes it.
std::vector<LabelRow> labelRows(const PrintQueue &queue);
