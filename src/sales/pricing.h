#pragma once

#include "sales/sale_line.h"

#include <span>

/// Arithmetic of a sale. Cells are read back from their display text in double precision; discount
/// percentages, discount amounts and the running totals are kept in single precision, as the shop's
/// books have always been, so that totals of long lists agree with them to the last cent.
namespace pricing {

/// The discounts of a line, per cent and amount; see discounts::ofLine().
struct Discounts
{
    std::array<float, 3> percent{};
    std::array<float, 3> amount{};

    /// The three amounts together.
    float total() const { return amount[0] + amount[1] + amount[2]; }
};

/// "<>p1<>p2<>p3<>d1<>d2<>d3"; unreadable elements read as 0.
QString discountTag(const Discounts &parts);
Discounts discountsOf(QStringView tag);

/// Writes the quantity and everything that follows from it: line amount, tag, discount and net.
void recompute(SaleLine &line, double quantity);

/// The same for a pack whose label bears its price: the line's amount is that of the label, though
/// the quantity has three decimals only.
void recompute(SaleLine &line, double quantity, double lineAmount);

/// A cell as a number; unreadable text counts as 0.
double valueOf(const SaleLine &line, SaleColumn column);

/// Whether discounts leave nothing of a price above 0.
bool isGivenAway(const SaleLine &line);

/// Display text of a sum kept in single precision: at most seven significant digits survive.
QString totalText(float sum);

/// The totals of one list as they stand on the screen.
struct Totals
{
    QString gross = QStringLiteral("0,00");
    QString vat = QStringLiteral("0,00"); ///< on the net amounts as they stand; not part of `grand`
    QString grand = QStringLiteral("0,00");
    QString discount = QStringLiteral("0,00");

    friend bool operator==(const Totals &, const Totals &) = default;
};

/// The cells of a line that the totals are made of, as numbers; unreadable text counts as 0.
struct Figures
{
    double vatRate = 0.0;
    double amount = 0.0;
    double discount = 0.0;
    double net = 0.0;
};
Figures figuresOf(const SaleLine &line);

/// Sums from the first line to the last.
Totals hesapla(std::span<const Figures> lines);

/// Cash given less the grand total; "0,00" while the cash field holds no number.
QString change(QStringView cash, QStringView grandTotal);

} // namespace pricing
