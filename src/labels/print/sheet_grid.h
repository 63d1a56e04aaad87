#pragma once

#include <QtGlobal>

/// Where labels lie on a sheet. Millimetres, single precision, as a layout file holds them.
struct SheetGrid
{
    float left = 0;   ///< margin of the first column
    float top = 0;    ///< margin of the first row
    float stepX = 0;  ///< from one label column to the next
    float stepY = 0;  ///< from one label row to the next
    float across = 0; ///< labels across a sheet
    float down = 0;   ///< labels down a sheet

    /// Whether both counts are positive whole numbers. With others the counters below never match:
    /// labels go on to the right, or down, without a new row or sheet.
    bool isCountable() const;

    /// Labels on a sheet; 0 where that cannot be counted.
    qint64 places() const;

    friend bool operator==(const SheetGrid &, const SheetGrid &) = default;
};

/// Walks the places of a run's labels: left to right, top to bottom, a new page after
/// across × down labels.
class GridWalk
{
public:
    /// `first`: the place of the first sheet to begin at, from 1; a sheet that is partly used has
    /// none before it left. Places the sheet has not are taken as the first.
    explicit GridWalk(const SheetGrid &grid, qint64 first = 1);

    struct Place
    {
        float x = 0; ///< upper left corner of the label, mm
        float y = 0;
        int page = 1;
        bool newPage = false; ///< a page is fed before this label
    };

    /// The place of the next label. The page after a full sheet is fed only here, when another
    /// label follows: a run that ends on a full sheet feeds no blank one after it.
    Place next();

private:
    SheetGrid m_grid;
    float m_columnOffset = 0;
    float m_rowOffset = 0;
    long long m_column = 0; ///< labels placed in this row
    long long m_sheet = 0;  ///< labels placed on this sheet
    int m_page = 1;
    bool m_sheetFull = false;
};
