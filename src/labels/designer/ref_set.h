#pragma once

#include "labels/layout/label_ref.h"

#include <initializer_list>
#include <vector>

/// A set of elements of one layout, in painting order.
class RefSet
{
public:
    RefSet() = default;
    RefSet(std::initializer_list<LabelRef> refs);

    /// Every element of a layout.
    static RefSet all(const LabelLayout &layout);

    bool contains(LabelRef ref) const;
    void insert(LabelRef ref);
    void remove(LabelRef ref);
    void clear() { m_refs.clear(); }
    bool isEmpty() const { return m_refs.empty(); }
    std::size_t size() const { return m_refs.size(); }
    LabelRef front() const { return m_refs.front(); }
    LabelRef back() const { return m_refs.back(); }

    auto begin() const { return m_refs.begin(); }
    auto end() const { return m_refs.end(); }

    /// The elements for which `keep` holds.
    template <typename Keep>
    RefSet filtered(Keep keep) const
    {
        RefSet result;
        for (const LabelRef ref : m_refs)
            if (keep(ref))
                result.m_refs.push_back(ref);
        return result;
    }

    friend bool operator==(const RefSet &, const RefSet &) = default;

private:
    std::vector<LabelRef> m_refs; ///< ascending, each once
};
