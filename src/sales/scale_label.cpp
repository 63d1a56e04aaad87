#include "sales/scale_label.h"

#include "common/digits.h"
#include "common/ean_check_digit.h"
#include "common/scale_prefixes.h"
#include "common/turkish.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDigits = 13;
constexpr int kGramDecimals = 3;
constexpr int kKurusDecimals = 2;

/// The rule of one prefix; what its section does not say stays as it is usual.
ScaleRule readRule(KeyFile &keys, const QString &file, const QString &prefix)
{
    const auto word = [&](const QString &key) {
        return turkish::lower(keys.read(prefix, key, file).trimmed());
    };
    const auto number = [&](const QString &key, int usual) {
        bool readable = false;
        const int value = word(key).toInt(&readable);
        return readable ? std::clamp(value, 0, static_cast<int>(kDigits)) : usual;
    };
    ScaleRule rule;
    rule.prefix = prefix;
    rule.pricesItem = word(u"tur"_s) == u"fiyat";
    rule.namesStock = word(u"kod"_s) == u"stok";
    rule.withPrefix = number(u"onekli"_s, rule.namesStock ? 0 : 1) != 0;
    rule.itemDigits = number(u"urun"_s, rule.itemDigits);
    rule.skippedDigits = number(u"atla"_s, rule.skippedDigits);
    rule.valueDigits = number(u"deger"_s, rule.valueDigits);
    rule.decimals = number(u"ondalik"_s, rule.pricesItem ? kKurusDecimals : kGramDecimals);
    return rule;
}

QString faultOf(const ScaleRule &rule, QStringView code)
{
    const qsizetype digits =
        rule.prefix.size() + rule.itemDigits + rule.skippedDigits + rule.valueDigits + 1;
    if (digits != kDigits || rule.itemDigits == 0 || rule.valueDigits == 0)
        return u"terazi.zev [%1]: önek, urun, atla ve deger haneleri 12 etmeli"_s.arg(rule.prefix);
    if (eanCheckDigit(code.chopped(1)) != code.back().unicode() - u'0')
        return u"terazi etiketinin denetim hanesi yanlış"_s;
    return {};
}

} // namespace

std::vector<ScaleRule> readScaleRules(KeyFile &keys, const QString &file)
{
    std::vector<ScaleRule> rules;
    for (const QString &prefix : scalePrefixes(keys, file))
        rules.push_back(readRule(keys, file, prefix));
    return rules;
}

std::optional<ScaleLabel> readScaleLabel(const std::vector<ScaleRule> &rules, const QString &code)
{
    if (code.size() != kDigits || !areDigits(code))
        return {};
    const auto rule = std::find_if(rules.begin(), rules.end(), [&code](const ScaleRule &each) {
        return code.startsWith(each.prefix);
    });
    if (rule == rules.end())
        return {};
    ScaleLabel label;
    label.fault = faultOf(*rule, code);
    if (!label.fault.isEmpty())
        return label;
    const qsizetype start = rule->withPrefix ? 0 : rule->prefix.size();
    label.code = code.sliced(start, rule->prefix.size() + rule->itemDigits - start);
    label.isStockCode = rule->namesStock;
    const double value =
        code.sliced(kDigits - 1 - rule->valueDigits, rule->valueDigits).toDouble() /
        std::pow(10.0, rule->decimals);
    (rule->pricesItem ? label.price : label.weight) = value;
    return label;
}
