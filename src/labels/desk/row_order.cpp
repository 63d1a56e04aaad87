#include "labels/desk/row_order.h"

#include "common/amount.h"
#include "common/turkish_order.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <string>

namespace row_order {

namespace {

template <typename Key, typename Less>
std::vector<int> placesBy(const std::vector<Key> &keys, Qt::SortOrder order, Less less)
{
    std::vector<int> places(keys.size());
    std::iota(places.begin(), places.end(), 0);
    const auto key = [&](int place) -> const Key & {
        return keys[static_cast<std::size_t>(place)];
    };
    std::stable_sort(places.begin(), places.end(), [&](int a, int b) {
        return order == Qt::AscendingOrder ? less(key(a), key(b)) : less(key(b), key(a));
    });
    return places;
}

} // namespace

std::vector<int> sorted(const QStringList &texts, bool areNumbers, Qt::SortOrder order)
{
    if (areNumbers) {
        std::vector<double> keys;
        for (const QString &text : texts)
            keys.push_back(amount::parse(text).value_or(-std::numeric_limits<double>::infinity()));
        return placesBy(keys, order, std::less<>());
    }
    std::vector<std::string> keys;
    for (const QString &text : texts)
        keys.push_back(text.toStdString());
    return placesBy(keys, order, [](const std::string &a, const std::string &b) {
        return turkish_order::compare(a, b) < 0;
    });
}

} // namespace row_order
