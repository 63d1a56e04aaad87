#pragma once

#include "common/record_set.h"
#include "common/scan_sounds.h"
#include "common/settings.h"
#include "common/vat_table.h"
#include "sales/sale_list.h"
#include "sales/scale_label.h"

class CompanyDatabase;

/// What became of an entered code.
struct LookupResult
{
    enum class Outcome
    {
        added,    ///< a new line stands at `row`
        merged,   ///< the line at `row` has one more
        notFound, ///< the host does not know the code
        unpriced, ///< known, but without a price it can be sold at
        tooMany,  ///< more of it than a line may hold
    };
    Outcome outcome = Outcome::notFound;
    int row = -1;
    QString remark; ///< for the cashier, in Turkish; may be empty
};

/// A line of the stock that the card stands at, without price; `code`: as it was entered.
SaleLine lineOf(const RecordSet &card, const QString &code);

/// Finds entered codes in the host database and brings them into a sale list. What it is made
/// of must outlive it. Failed statements throw HostError; the list is then as it was.
class ItemLookup
{
public:
    ItemLookup(CompanyDatabase &company, ScanSounds &sounds, const VatTable &vat,
               const Settings &settings);

    /// How the shop's weighing scales build their numbers.
    void setScales(std::vector<ScaleRule> rules) { m_scales = std::move(rules); }

    /// The code is a barcode, or the label of a weighing scale. So many pieces or packs are added.
    LookupResult listebarkodkontrol(SaleList &list, const QString &code, double quantity = 1.0);

    /// The code is a stock code.
    LookupResult listestokkodkontrol(SaleList &list, const QString &code, double quantity = 1.0);

    /// Prices a line of quantity 1 from the price rows of its stock; returns why it cannot be sold,
    /// "" when it can.
    QString priceLine(SaleLine &line, RecordSet price) const;

private:
    LookupResult merge(SaleList &list, int row, double quantity);
    LookupResult notFound(const QString &remark);
    LookupResult refused(LookupResult::Outcome outcome, const QString &remark);
    LookupResult addPriced(SaleList &list, SaleLine line, double quantity);
    LookupResult addWeighed(SaleList &list, const QString &code, const ScaleLabel &label,
                            double packs);
    LookupResult append(SaleList &list, SaleLine line);
    RecordSet pricesOf(const SaleLine &line);
    QString vatRate(const QString &vatClass) const;

    CompanyDatabase &m_company;
    ScanSounds &m_sounds;
    const VatTable &m_vat;
    const Settings &m_settings;
    std::vector<ScaleRule> m_scales;
};
