#include "labels/designer/ref_set.h"

#include <algorithm>

RefSet::RefSet(std::initializer_list<LabelRef> refs)
{
    for (const LabelRef ref : refs)
        insert(ref);
}

RefSet RefSet::all(const LabelLayout &layout)
{
    RefSet result;
    for (const ElementKind kind : {ElementKind::picture, ElementKind::barcode, ElementKind::text})
        for (std::size_t i = 0; i < elementCount(layout, kind); ++i)
            result.m_refs.push_back({kind, i});
    return result;
}

bool RefSet::contains(LabelRef ref) const
{
    return std::binary_search(m_refs.begin(), m_refs.end(), ref);
}

void RefSet::insert(LabelRef ref)
{
    const auto at = std::lower_bound(m_refs.begin(), m_refs.end(), ref);
    if (at == m_refs.end() || *at != ref)
        m_refs.insert(at, ref);
}

void RefSet::remove(LabelRef ref)
{
    const auto at = std::lower_bound(m_refs.begin(), m_refs.end(), ref);
    if (at != m_refs.end() && *at == ref)
        m_refs.erase(at);
}
