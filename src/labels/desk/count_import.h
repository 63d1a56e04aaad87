#pragma once

#include "labels/desk/count_file.h"
#include "labels/desk/stock_row.h"

#include <functional>
#include <optional>

class CompanyDatabase;

/// The stock units that counted codes mean, in their order: a code is looked for among the barcodes
/// first, then as a stock code, whose units are those of `units`. The counts of equal codes are
/// added up. Codes without a stock go to `problems`. `goOn(done, total)`: false stops; nothing is
/// returned then. Throws HostError.
std::optional<std::vector<StockRow>>
findCounted(CompanyDatabase &database, const std::vector<count_file::Line> &lines, UnitChoice units,
            std::vector<count_file::Problem> &problems,
            const std::function<bool(int done, int total)> &goOn);
