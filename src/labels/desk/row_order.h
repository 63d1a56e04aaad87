#pragma once

#include <QStringList>

#include <vector>

namespace row_order {

/// The places of texts in the order of the Turkish alphabet, without regard to case, or where they
/// are numbers by their value (texts that are none first). Equal ones keep their order.
std::vector<int> sorted(const QStringList &texts, bool areNumbers, Qt::SortOrder order);

} // namespace row_order
