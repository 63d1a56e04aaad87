#pragma once

#include "common/settings.h"
#include "common/vat_table.h"
#include "sales/sale_list.h"
#include "sales/till_sounds.h"

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
    };
    Outcome outcome = Outcome::notFound;
    int row = -1;
    QString remark; ///< for the cashier, in Turkish; may be empty
};

/// Finds entered codes in the host database and brings them into a sale list. What it is made
/// of must outlive it. Failed statements throw HostError; the list is then as it was.
class ItemLookup
{
public:
    ItemLookup(CompanyDatabase &company, TillSounds &sounds, const VatTable &vat,
               const Settings &settings);

    /// The code is a barcode.
    LookupResult listebarkodkontrol(SaleList &list, const QString &code);

    /// The code is a stock code.
    LookupResult listestokkodkontrol(SaleList &list, const QString &code);

private:
    LookupResult merge(SaleList &list, int row);
    LookupResult notFound(const QString &remark);
    LookupResult addPriced(SaleList &list, SaleLine line);
    QString priceLine(SaleLine &line);
    QString vatRate(const QString &vatClass) const;

    CompanyDatabase &m_company;
    TillSounds &m_sounds;
    const VatTable &m_vat;
    const Settings &m_settings;
};
