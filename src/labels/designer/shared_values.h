#pragma once

#include "labels/designer/ref_set.h"

#include <optional>
#include <type_traits>

/// The value that all elements of a set have in common; nothing when they differ or there are none.
template <typename Get>
auto shared(const RefSet &refs, Get get) -> std::optional<std::decay_t<decltype(get(LabelRef()))>>
{
    if (refs.isEmpty())
        return {};
    auto first = get(refs.front());
    for (const LabelRef ref : refs)
        if (!(get(ref) == first))
            return {};
    return first;
}
