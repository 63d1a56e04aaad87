#pragma once

#include "labels/print/label_row.h"
#include "labels/print/print_queue.h"

/// The queue as the print engine takes it.
std::vector<LabelRow> labelRows(const PrintQueue &queue);
