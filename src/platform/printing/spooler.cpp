#include "platform/printing/spooler.h"

#include <algorithm>
#include <cstdlib>

int chooseResolution(int quality, const QList<int> &choices, int own)
{
    if (choices.isEmpty())
        return quality > 0 ? quality : own;
    if (quality > 0)
        return *std::min_element(choices.begin(), choices.end(), [quality](int a, int b) {
            return std::abs(a - quality) < std::abs(b - quality);
        });
    if (quality == -1 || quality == -2)
        return *std::min_element(choices.begin(), choices.end());
    if (quality == -4)
        return *std::max_element(choices.begin(), choices.end());
    return own;
}
