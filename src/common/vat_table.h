#pragma once

#include <QString>

#include <array>

/// VAT classes: 101 rows × 3 columns of text. Row n (from 1) holds the n-th class record as it was
/// read: column 1 its number, column 2 its rate. Row 0 and column 0 stay empty.
using VatTable = std::array<std::array<QString, 3>, 101>;
