#include "sales/item_lookup.h"

#include "common/amount.h"
#include "common/host_connection.h"
#include "common/host_queries.h"
#include "sales/pricing.h"

using namespace Qt::StringLiterals;

namespace {

bool moveToPrice(RecordSet &prices, QStringView number)
{
    while (!prices.eof() && prices.text(u"STKFIYNO").trimmed() != number)
        prices.moveNext();
    return !prices.eof();
}

pricing::Discounts percentages(const RecordSet &price)
{
    pricing::Discounts discounts;
    discounts.percent = {amount::single(price.text(u"STKFIYISKYUZ1")),
                         amount::single(price.text(u"STKFIYISKYUZ2")),
                         amount::single(price.text(u"STKFIYISKYUZ3"))};
    return discounts;
}

QString discountRemark(const SaleLine &line)
{
    if (pricing::valueOf(line, SaleColumn::net) > 0.0 ||
        pricing::valueOf(line, SaleColumn::price) <= 0.0)
        return {};
    return u"%1: indirim fiyatı sıfırlıyor, fiyatı kontrol ediniz."_s.arg(line[SaleColumn::name]);
}

} // namespace

ItemLookup::ItemLookup(CompanyDatabase &company, TillSounds &sounds, const VatTable &vat,
                       const Settings &settings)
    : m_company(company), m_sounds(sounds), m_vat(vat), m_settings(settings)
{}

LookupResult ItemLookup::listebarkodkontrol(SaleList &list, const QString &code)
{
    HostConnection &host = m_company.company();
    const RecordSet barcode = host.execute(host_queries::barcode(code));
    if (barcode.eof())
        return notFound(u"Barkod bulunamadı: %1"_s.arg(code));
    if (const int row = list.find(SaleColumn::barcode, barcode.text(u"STKBARKOD")); row >= 0)
        return merge(list, row);

    const QString stockCode = barcode.text(u"STKBARSTKKOD");
    const RecordSet card = host.execute(host_queries::card(stockCode));
    if (card.eof())
        return notFound(u"Barkodun stok kartı yok: %1 (%2)"_s.arg(code, stockCode));
    m_sounds.calseson();

    SaleLine line;
    line[SaleColumn::barcode] = code;
    line[SaleColumn::stockCode] = stockCode;
    line[SaleColumn::name] = card.text(u"STKCINSI");
    line[SaleColumn::unit] = card.text(u"STKBIRIM");
    return addPriced(list, std::move(line));
}

LookupResult ItemLookup::listestokkodkontrol(SaleList &list, const QString &code)
{
    if (const int row = list.find(SaleColumn::stockCode, code); row >= 0)
        return merge(list, row);

    HostConnection &host = m_company.company();
    const RecordSet card = host.execute(host_queries::card(code));
    if (card.eof())
        return notFound(u"Stok kodu bulunamadı: %1"_s.arg(code));
    m_sounds.calseson();

    SaleLine line;
    line[SaleColumn::stockCode] = card.text(u"STKKOD");
    line[SaleColumn::name] = card.text(u"STKCINSI");
    line[SaleColumn::unit] = card.text(u"STKBIRIM");
    const RecordSet barcode = host.execute(host_queries::barcodesOf(code));
    line[SaleColumn::barcode] = barcode.eof() ? code : barcode.text(u"STKBARKOD");
    return addPriced(list, std::move(line));
}

LookupResult ItemLookup::merge(SaleList &list, int row)
{
    m_sounds.calseson();
    SaleLine line = list.line(row);
    pricing::recompute(line, pricing::valueOf(line, SaleColumn::quantity) + 1.0);
    list.replace(row, std::move(line));
    return {LookupResult::Outcome::merged, row, {}};
}

LookupResult ItemLookup::notFound(const QString &remark)
{
    m_sounds.calsesoff();
    return {LookupResult::Outcome::notFound, -1, remark};
}

LookupResult ItemLookup::addPriced(SaleList &list, SaleLine line)
{
    const QString fault = priceLine(line);
    if (!fault.isEmpty()) {
        m_sounds.calsesoff();
        return {LookupResult::Outcome::unpriced, -1, fault};
    }
    const QString remark = discountRemark(line);
    return {LookupResult::Outcome::added, list.append(std::move(line)), remark};
}

/// Prices a line of quantity 1; returns why it cannot be sold, "" when it can. An item without a
/// price is refused: at 0,00 it would leave the shop unpaid. A price below 0 is one: deposits are
/// given back this way.
QString ItemLookup::priceLine(SaleLine &line)
{
    const QString &stockCode = line[SaleColumn::stockCode];
    RecordSet price = m_company.company().execute(host_queries::pricesOf(stockCode));
    if (!moveToPrice(price, m_settings.stok.fiyatip))
        return u"%1: %2 numaralı fiyat tanımlı değil, satılamaz."_s.arg(line[SaleColumn::name],
                                                                        m_settings.stok.fiyatip);
    const auto unitPrice = amount::parse(price.text(u"STKFIYTUTAR"));
    if (!unitPrice)
        return u"%1: fiyatı geçersiz (\"%2\"), satılamaz."_s.arg(line[SaleColumn::name],
                                                                 price.text(u"STKFIYTUTAR"));
    line[SaleColumn::price] = amount::money(*unitPrice);
    line.tag = pricing::discountTag(percentages(price));
    pricing::recompute(line, 1.0);
    line[SaleColumn::vatRate] = vatRate(price.text(u"STKFIYKDVNO"));
    return {};
}

/// The class is a position in the VAT table, not a class number. A price row that names no class
/// gets the default rate of the settings; a class outside the table leaves the rate empty.
QString ItemLookup::vatRate(const QString &vatClass) const
{
    if (vatClass.trimmed().isEmpty())
        return m_settings.kdv.kdv;
    const auto row = amount::parse(vatClass);
    const auto last = static_cast<double>(m_vat.size() - 1);
    if (!row || *row < 0.0 || *row > last)
        return {};
    return m_vat[static_cast<std::size_t>(qRound(*row))][2];
}
