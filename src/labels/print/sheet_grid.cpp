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

qint64 SheetGrid::places() const
{
    return isCountable() ? static_cast<qint64>(across) * static_cast<qint64>(down) : 0;
}

GridWalk::GridWalk(const SheetGrid &grid, qint64 first) : m_grid(grid)
{
    if (first <= grid.places())
        for (qint64 place = 1; place < first; ++place)
            next();
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
