#include "labels/print/sheet_grid.h"

#include <cmath>

namespace {

bool isCount(float value)
{
    return value >= 1 && value <= 1e6F && std::floor(value) == value;
}

bool matches(long long counter, double wanted)
{
    return static_cast<double>(counter) == wanted;
}

} // namespace

bool SheetGrid::isCountable() const
{
    return isCount(across) && isCount(down);
}

GridWalk::Place GridWalk::next()
{
    const bool newPage = m_sheetFull;
    if (newPage) {
        m_columnOffset = 0;
        m_rowOffset = 0;
        m_column = 0;
        m_sheet = 0;
        m_sheetFull = false;
        ++m_page;
    }

    ++m_column;
    ++m_sheet;
    const Place place{m_grid.left + m_columnOffset, m_grid.top + m_rowOffset, m_page, newPage};

    if (matches(m_column, static_cast<double>(m_grid.across))) {
        m_column = 0;
        m_columnOffset = 0;
        m_rowOffset += m_grid.stepY;
    } else {
        m_columnOffset += m_grid.stepX;
    }
    m_sheetFull =
        matches(m_sheet, static_cast<double>(m_grid.across) * static_cast<double>(m_grid.down));
    return place;
}
