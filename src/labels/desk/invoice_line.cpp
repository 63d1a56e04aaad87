#include "labels/desk/invoice_line.h"

#include "common/amount.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMostLabels = 999'999;
constexpr double kNoise = 1e-6; ///< what floating columns add to a whole quantity

} // namespace

int labelsFor(QStringView quantity)
{
    const double pieces = std::fabs(amount::parse(quantity).value_or(1));
    return static_cast<int>(std::clamp(std::ceil(pieces - kNoise), 1.0, kMostLabels));
}

bool isLabelCount(QStringView quantity)
{
    return amount::labelCount(quantity).has_value();
}
