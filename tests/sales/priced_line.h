#pragma once

#include "sales/pricing.h"

#include <array>
#include <vector>

/// A line of a sale whose figures are computed. `percent`: its three discounts.
inline SaleLine pricedLine(const QString &price, double quantity,
                           const std::array<float, 3> &percent = {},
                           const QString &vatRate = QStringLiteral("18"))
{
    SaleLine line;
    line[SaleColumn::price] = price;
    line[SaleColumn::vatRate] = vatRate;
    line.tag = pricing::discountTag({percent, {}});
    pricing::recompute(line, quantity);
    return line;
}

inline pricing::Totals totalsOf(const std::vector<SaleLine> &lines)
{
    std::vector<pricing::Figures> figures;
    for (const SaleLine &line : lines)
        figures.push_back(pricing::figuresOf(line));
    return pricing::hesapla(figures);
}
