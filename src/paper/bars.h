#pragma once

#include <QFont>
#include <QRect>
#include <QSizeF>
#include <QString>

#include <optional>
#include <vector>

/// One dark bar, in modules from the first guard bar's left edge.
struct Bar
{
    int start = 0;
    int width = 0;
    bool guard = false; ///< start, centre and end bars reach further down than the others

    friend bool operator==(const Bar &, const Bar &) = default;
};

/// Digits that stand together beneath the bars, and their room in modules from the first guard bar.
struct DigitGroup
{
    QString digits;
    int left = 0;
    int width = 0;

    friend bool operator==(const DigitGroup &, const DigitGroup &) = default;
};

/// A bar symbol ready to draw. Widths are in modules, that of the narrowest bar.
struct BarSymbol
{
    QString name;   ///< of the symbology; symbols of one name are of one size
    QString digits; ///< the number the bars say
    int modules = 0;
    int quietLeft = 0;
    int quietRight = 0;
    int longModules = 0;  ///< with quiet zones, of the longer symbol that shares its boxes; 0: none
    double barHeight = 0; ///< of bars that are not cut low
    std::vector<Bar> bars;
    std::vector<DigitGroup> groups;

    int totalModules() const { return quietLeft + modules + quietRight; }

    friend bool operator==(const BarSymbol &, const BarSymbol &) = default;
};

/// Width of a module (mm) in a symbol at 100 %.
inline constexpr double kFullModule = 0.33;

/// Guard bars reach this many modules below the others.
inline constexpr int kGuardDepth = 5;

/// A bar symbol laid out in whole device dots.
struct BarsGeometry
{
    int module = 0; ///< width of the narrowest bar
    int left = 0;   ///< left edge of the first guard bar
    int top = 0;
    int bottom = 0; ///< lower end of the whole box

    int x(int atModule) const { return left + atModule * module; }
};

/// Lays the symbol out inside the box (mm): the widest whole-dot module with which bars and quiet
/// zones stay inside, the symbol in the middle. Above 100 % a short symbol takes no wider modules
/// than the longer one would in the same box. Nothing when not even one dot per module fits, or for
/// boxes no paper has. `dpi`: dots per inch, across and down.
std::optional<BarsGeometry> fitBars(const BarSymbol &symbol, const QRectF &box, QSizeF dpi);

/// The digits beneath the bars, in one size in which every group fits beneath its bars.
struct DigitStyle
{
    QFont font;
    double advance = 0; ///< dots, of one digit
    int height = 0;     ///< dots; 0: they would be too small to be read and are left out
};

/// `wanted`: the font of the digits, made smaller where it must be.
DigitStyle digitStyle(const BarSymbol &symbol, const BarsGeometry &geometry, QFont wanted);

/// Lower end (dots) of the bars that are no guards: room is left for the digits and the guards, but
/// at most half of the box.
int barsBottom(const BarsGeometry &geometry, const DigitStyle &digits);

/// The bars as rectangles, one each, ending at `bottom`, guard bars at `guardBottom`.
std::vector<QRect> barRectangles(const BarSymbol &symbol, const BarsGeometry &geometry, int bottom,
                                 int guardBottom);
