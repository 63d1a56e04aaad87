#include "sales/item_lookup.h"

#include "common/amount.h"
#include "common/host_connection.h"
#include "common/host_queries.h"
#include "sales/pricing.h"
#include "sales/quantity.h"

#include <algorithm>
#include <cmath>

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
    if (!pricing::isGivenAway(line))
        return {};
    return u"%1: indirim fiyatı sıfırlıyor, fiyatı kontrol ediniz."_s.arg(line[SaleColumn::name]);
}

/// In three decimals, as a scale weighs; never nothing for a pack that has a price.
double roundedWeight(double weight)
{
    return weight > 0.0 ? std::max(std::round(weight * 1000.0), 1.0) / 1000.0 : 0.0;
}

} // namespace

SaleLine lineOf(const RecordSet &card, const QString &code)
{
    SaleLine line;
    line[SaleColumn::barcode] = code;
    line[SaleColumn::stockCode] = card.text(u"STKKOD");
    line[SaleColumn::name] = card.text(u"STKCINSI");
    line[SaleColumn::unit] = card.text(u"STKBIRIM");
    return line;
}

ItemLookup::ItemLookup(CompanyDatabase &company, ScanSounds &sounds, const VatTable &vat,
                       const Settings &settings)
    : m_company(company), m_sounds(sounds), m_vat(vat), m_settings(settings)
{}

LookupResult ItemLookup::listebarkodkontrol(SaleList &list, const QString &code, double quantity)
{
    HostConnection &host = m_company.company();
    const RecordSet barcode = host.execute(host_queries::barcode(code));
    if (barcode.eof()) {
        const auto label = readScaleLabel(m_scales, code);
        return label ? addWeighed(list, code, *label, quantity)
                     : notFound(u"Barkod bulunamadı: %1"_s.arg(code));
    }
    if (const int row = list.find(SaleColumn::barcode, barcode.text(u"STKBARKOD")); row >= 0)
        return merge(list, row, quantity);

    const QString stockCode = barcode.text(u"STKBARSTKKOD");
    const RecordSet card = host.execute(host_queries::card(stockCode));
    if (card.eof())
        return notFound(u"Barkodun stok kartı yok: %1 (%2)"_s.arg(code, stockCode));
    m_sounds.calseson();
    SaleLine line = lineOf(card, code);
    line[SaleColumn::stockCode] = stockCode;
    return addPriced(list, std::move(line), quantity);
}

LookupResult ItemLookup::listestokkodkontrol(SaleList &list, const QString &code, double quantity)
{
    if (const int row = list.find(SaleColumn::stockCode, code); row >= 0)
        return merge(list, row, quantity);

    HostConnection &host = m_company.company();
    const RecordSet card = host.execute(host_queries::card(code));
    if (card.eof())
        return notFound(u"Stok kodu bulunamadı: %1"_s.arg(code));
    m_sounds.calseson();
    SaleLine line = lineOf(card, code);
    const RecordSet barcode = host.execute(host_queries::barcodesOf(code));
    if (!barcode.eof())
        line[SaleColumn::barcode] = barcode.text(u"STKBARKOD");
    return addPriced(list, std::move(line), quantity);
}

LookupResult ItemLookup::merge(SaleList &list, int row, double quantity)
{
    SaleLine line = list.line(row);
    const double sum = pricing::valueOf(line, SaleColumn::quantity) + quantity;
    if (quantity != 1.0 && sum > quantity::kMost)
        return refused(LookupResult::Outcome::tooMany, quantity::tooMany());
    m_sounds.calseson();
    pricing::recompute(line, sum);
    list.replace(row, std::move(line));
    return {LookupResult::Outcome::merged, row, {}};
}

LookupResult ItemLookup::notFound(const QString &remark)
{
    return refused(LookupResult::Outcome::notFound, remark);
}

LookupResult ItemLookup::refused(LookupResult::Outcome outcome, const QString &remark)
{
    m_sounds.calsesoff();
    return {outcome, -1, remark};
}

LookupResult ItemLookup::addPriced(SaleList &list, SaleLine line, double quantity)
{
    const QString fault = priceLine(line, pricesOf(line));
    if (!fault.isEmpty())
        return refused(LookupResult::Outcome::unpriced, fault);
    if (quantity != 1.0)
        pricing::recompute(line, quantity);
    return append(list, std::move(line));
}

/// Each label is a line of its own: two packs of one item differ, and one of them may be put back.
LookupResult ItemLookup::addWeighed(SaleList &list, const QString &code, const ScaleLabel &label,
                                    double packs)
{
    if (!label.fault.isEmpty())
        return notFound(u"Barkod bulunamadı: %1 (%2)"_s.arg(code, label.fault));
    HostConnection &host = m_company.company();
    QString stockCode = label.code;
    if (!label.isStockCode) {
        const RecordSet barcode = host.execute(host_queries::barcode(label.code));
        stockCode = barcode.eof() ? QString() : barcode.text(u"STKBARSTKKOD");
    }
    const RecordSet card =
        stockCode.isEmpty() ? RecordSet() : host.execute(host_queries::card(stockCode));
    if (card.eof())
        return notFound(u"Terazi etiketinin ürünü bulunamadı: %1 (%2)"_s.arg(code, label.code));
    SaleLine line = lineOf(card, code);
    const QString fault = priceLine(line, pricesOf(line));
    if (!fault.isEmpty())
        return refused(LookupResult::Outcome::unpriced, fault);
    const double unitPrice = pricing::valueOf(line, SaleColumn::price);
    if (label.price && unitPrice <= 0.0)
        return refused(LookupResult::Outcome::unpriced,
                       u"%1: birim fiyatı yok, etiketin tutarı miktara çevrilemez."_s.arg(
                           line[SaleColumn::name]));
    const double each = label.weight ? *label.weight : roundedWeight(*label.price / unitPrice);
    if (each <= 0.0)
        return notFound(u"Terazi etiketinde miktar sıfır: %1"_s.arg(code));
    if (each * packs > quantity::kMost)
        return refused(LookupResult::Outcome::tooMany, quantity::tooMany());
    m_sounds.calseson();
    if (label.price)
        pricing::recompute(line, each * packs, *label.price * packs);
    else
        pricing::recompute(line, each * packs);
    return append(list, std::move(line));
}

LookupResult ItemLookup::append(SaleList &list, SaleLine line)
{
    const QString remark = discountRemark(line);
    return {LookupResult::Outcome::added, list.append(std::move(line)), remark};
}

RecordSet ItemLookup::pricesOf(const SaleLine &line)
{
    return m_company.company().execute(host_queries::pricesOf(line[SaleColumn::stockCode]));
}

/// An item without a price is refused: at 0,00 it would leave the shop unpaid. A price below 0 is
/// one: deposits are given back this way.
QString ItemLookup::priceLine(SaleLine &line, RecordSet price) const
{
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
