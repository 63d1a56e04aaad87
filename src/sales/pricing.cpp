#include "sales/pricing.h"

#include "common/amount.h"
#include "common/discounts.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace pricing {

namespace {

constexpr QStringView kSeparator = u"<>";

/// One running total: widened for the addition, narrowed when stored.
void add(float &sum, double value)
{
    sum = amount::narrow(static_cast<double>(sum) + value);
}

} // namespace

QString discountTag(const Discounts &parts)
{
    QString tag;
    for (const float percent : parts.percent)
        tag.append(kSeparator).append(amount::plain(percent));
    for (const float part : parts.amount)
        tag.append(kSeparator).append(amount::plain(part));
    return tag;
}

Discounts discountsOf(QStringView tag)
{
    const QList<QStringView> elements = tag.split(kSeparator);
    const auto element = [&](std::size_t i) {
        const auto at = static_cast<qsizetype>(i);
        return at < elements.size() ? amount::single(elements.at(at)) : 0.0F;
    };
    Discounts parts;
    for (std::size_t i = 0; i < parts.percent.size(); ++i) {
        parts.percent[i] = element(1 + i);
        parts.amount[i] = element(4 + i);
    }
    return parts;
}

double valueOf(const SaleLine &line, SaleColumn column)
{
    return amount::parse(line[column]).value_or(0.0);
}

void recompute(SaleLine &line, double quantity)
{
    line[SaleColumn::quantity] = amount::plain(quantity);
    recompute(line, quantity,
              valueOf(line, SaleColumn::quantity) * valueOf(line, SaleColumn::price));
}

void recompute(SaleLine &line, double quantity, double lineAmount)
{
    line[SaleColumn::quantity] = amount::plain(quantity);
    line[SaleColumn::amount] = amount::money(lineAmount);

    Discounts parts = discountsOf(line.tag);
    parts.amount = discounts::ofLine(lineAmount, parts.percent);
    line.tag = discountTag(parts);
    const auto discount = static_cast<double>(parts.total());
    line[SaleColumn::discount] = amount::money(discount);
    line[SaleColumn::net] = amount::money(lineAmount - discount);
}

bool isGivenAway(const SaleLine &line)
{
    return valueOf(line, SaleColumn::net) <= 0.0 && valueOf(line, SaleColumn::price) > 0.0;
}

QString totalText(float sum)
{
    return amount::money(sum);
}

Figures figuresOf(const SaleLine &line)
{
    return {valueOf(line, SaleColumn::vatRate), valueOf(line, SaleColumn::amount),
            valueOf(line, SaleColumn::discount), valueOf(line, SaleColumn::net)};
}

Totals hesapla(std::span<const Figures> lines)
{
    float gross = 0.0F;
    float vat = 0.0F;
    float grand = 0.0F;
    float discount = 0.0F;
    for (const Figures &line : lines) {
        add(gross, line.amount);
        add(vat, line.vatRate / 100.0 * line.net);
        add(grand, line.net);
        add(discount, line.discount);
    }
    return {totalText(gross), totalText(vat), totalText(grand), totalText(discount)};
}

QString change(QStringView cash, QStringView grandTotal)
{
    const auto given = amount::parse(cash);
    return given ? amount::money(*given - amount::parse(grandTotal).value_or(0.0)) : u"0,00"_s;
}

} // namespace pricing
