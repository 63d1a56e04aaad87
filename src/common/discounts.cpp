#include "common/discounts.h"

#include "common/amount.h"

namespace discounts {

std::array<float, 3> ofLine(double lineAmount, const std::array<float, 3> &percent)
{
    std::array<float, 3> amounts{};
    double left = lineAmount;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        amounts[i] = amount::narrow(left * (static_cast<double>(percent[i]) / 100.0));
        left -= static_cast<double>(amounts[i]);
    }
    return amounts;
}

float shelfPrice(double price, const std::array<double, 3> &percent)
{
    const float listed = amount::single(amount::money(price));
    const auto d1 = static_cast<float>(price * percent[0] / 100);
    const auto d2 = static_cast<float>((price - d1) * percent[1] / 100);
    const auto d3 = static_cast<float>((price - d1 - d2) * percent[2] / 100);
    return listed - (d1 + d2 + d3);
}

} // namespace discounts
