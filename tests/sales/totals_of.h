#pragma once

#include "sales/pricing.h"

#include <vector>

inline pricing::Totals totalsOf(const std::vector<SaleLine> &lines)
{
    std::vector<pricing::Figures> figures;
    for (const SaleLine &line : lines)
        figures.push_back(pricing::figuresOf(line));
    return pricing::hesapla(figures);
}
