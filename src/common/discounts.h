#pragma once

#include <array>

/// Three discounts in per cent, each on what the ones before left. Till and shelf have always
/// rounded them differently, and neither may move by a kuruş: 9,30 less 5 % is 8,83 at the till and
/// 8,84 on the shelf.
namespace discounts {

/// The till's rule: the amounts taken off a line, each kept as a single; what is left in between is
/// not.
std::array<float, 3> ofLine(double lineAmount, const std::array<float, 3> &percent);

/// The shelf's rule: the price that is left. The price is rounded to kuruş before, its discounts
/// are not; everything is a single.
float shelfPrice(double price, const std::array<double, 3> &percent);

} // namespace discounts
