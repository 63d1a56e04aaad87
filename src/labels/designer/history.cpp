#include "labels/designer/history.h"

#include <algorithm>
#include <iterator>

namespace {

template <typename Element>
Splice<Element> difference(const std::vector<Element> &before, const std::vector<Element> &after)
{
    const auto [firstBefore, firstAfter] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto same = std::mismatch(
        std::make_reverse_iterator(before.end()), std::make_reverse_iterator(firstBefore),
        std::make_reverse_iterator(after.end()), std::make_reverse_iterator(firstAfter));
    return {static_cast<std::size_t>(firstBefore - before.begin()),
            {firstBefore, same.first.base()},
            {firstAfter, same.second.base()}};
}

template <typename Element>
void replace(std::vector<Element> &list, std::size_t at, const std::vector<Element> &gone,
             const std::vector<Element> &come)
{
    const auto from = list.begin() + static_cast<std::ptrdiff_t>(at);
    const std::size_t common = std::min(gone.size(), come.size());
    const auto rest = std::copy_n(come.begin(), common, from);
    if (gone.size() > common)
        list.erase(rest, rest + static_cast<std::ptrdiff_t>(gone.size() - common));
    else
        list.insert(rest, come.begin() + static_cast<std::ptrdiff_t>(common), come.end());
}

Design withoutElements(const Design &design)
{
    Design rest = design;
    rest.layout.pictures.clear();
    rest.layout.barcodes.clear();
    rest.layout.texts.clear();
    return rest;
}

void setRest(Design &design, const Design &rest)
{
    auto pictures = std::move(design.layout.pictures);
    auto barcodes = std::move(design.layout.barcodes);
    auto texts = std::move(design.layout.texts);
    design = rest;
    design.layout.pictures = std::move(pictures);
    design.layout.barcodes = std::move(barcodes);
    design.layout.texts = std::move(texts);
}

void stepBack(Design &design, const DesignStep &step)
{
    replace(design.layout.pictures, step.pictures.at, step.pictures.after, step.pictures.before);
    replace(design.layout.barcodes, step.barcodes.at, step.barcodes.after, step.barcodes.before);
    replace(design.layout.texts, step.texts.at, step.texts.after, step.texts.before);
    setRest(design, step.restBefore);
}

void stepForward(Design &design, const DesignStep &step)
{
    replace(design.layout.pictures, step.pictures.at, step.pictures.before, step.pictures.after);
    replace(design.layout.barcodes, step.barcodes.at, step.barcodes.before, step.barcodes.after);
    replace(design.layout.texts, step.texts.at, step.texts.before, step.texts.after);
    setRest(design, step.restAfter);
}

} // namespace

void History::record(const QString &what, int merge, const Design &before,
                     const RefSet &selectedBefore, const Design &after, const RefSet &selectedAfter)
{
    Design from = before;
    RefSet selectedFrom = selectedBefore;
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
    if (m_merging && merge != 0 && m_done > 0 && m_steps.back().merge == merge) {
        stepBack(from, m_steps.back());
        selectedFrom = m_steps.back().selectedBefore;
        m_steps.pop_back();
    }
    m_steps.push_back({what, merge, difference(from.layout.pictures, after.layout.pictures),
                       difference(from.layout.barcodes, after.layout.barcodes),
                       difference(from.layout.texts, after.layout.texts), withoutElements(from),
                       withoutElements(after), selectedFrom, selectedAfter});
    m_done = m_steps.size();
    m_merging = true;
}

RefSet History::undo(Design &design)
{
    m_merging = false;
    const DesignStep &step = m_steps[--m_done];
    stepBack(design, step);
    return step.selectedBefore;
}

RefSet History::redo(Design &design)
{
    m_merging = false;
    const DesignStep &step = m_steps[m_done++];
    stepForward(design, step);
    return step.selectedAfter;
}

void History::clear()
{
    m_steps.clear();
    m_done = 0;
    m_merging = false;
}
