#pragma once

#include <QString>

#include <array>

/// The ten sub-columns of a sale line, numbered from 1 as the shop's settings and reports know
/// them.
enum class SaleColumn
{
    barcode = 1,
    stockCode,
    name,
    vatRate,
    unit,
    price,
    quantity,
    amount,
    discount,
    net,
};

inline constexpr int kSaleColumns = 10;

/// One line of a sale, held as the text that stands on the screen: arithmetic and the ledger read
/// these texts back, so that what is posted is what the customer saw.
struct SaleLine
{
    std::array<QString, kSaleColumns> cells;
    QString tag; ///< discount percentages and amounts, as pricing::discountTag() joins them

    QString &operator[](SaleColumn column) { return cells[static_cast<std::size_t>(column) - 1]; }
    const QString &operator[](SaleColumn column) const
    {
        return cells[static_cast<std::size_t>(column) - 1];
    }

    friend bool operator==(const SaleLine &, const SaleLine &) = default;
};
