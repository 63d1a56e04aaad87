#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

#include <array>
#include <deque>

/// A font as paper knows it: by name and points, on any device.
struct PaperFont
{
    QString name;    ///< "" = the device's own
    double size = 0; ///< points; 0 = not given
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;

    friend bool operator==(const PaperFont &, const PaperFont &) = default;
};

/// How much room text takes on the paper, in millimetres.
class TextMeasure
{
public:
    virtual ~TextMeasure() = default;
    virtual double width(const PaperFont &font, QStringView text) const = 0;

    /// Height of a line, which its first character's font decides.
    virtual double lineHeight(const PaperFont &font) const = 0;
};

/// A font at one device, ready to measure and to draw with. Letters stand at their plain widths,
/// without kerning, so that a text is as wide as its letters together.
class DeviceFont
{
public:
    /// `dpiY`: dots per inch down the device.
    DeviceFont(const PaperFont &source, double dpiY);

    const PaperFont &source() const { return m_source; }
    const QFont &font() const { return m_font; }
    double ascent() const { return m_ascent; } ///< dots, whole
    double height() const { return m_height; } ///< dots, of one line

    /// Width of a text in dots.
    double width(QStringView text) const;

private:
    static constexpr std::size_t kLatin = 0x180; ///< all Turkish letters lie below

    PaperFont m_source;
    QFont m_font;
    double m_ascent = 0;
    double m_height = 0;
    mutable std::array<double, kLatin> m_widths{}; ///< dots, of each Latin letter; 0 = not known
};

/// The fonts of one device, each made once.
class DeviceFonts final : public TextMeasure
{
public:
    /// `dpi`: dots per inch of the device, across and down.
    explicit DeviceFonts(QSizeF dpi) : m_dpi(dpi) {}

    const DeviceFont &find(const PaperFont &font) const;
    QSizeF dpi() const { return m_dpi; }

    double width(const PaperFont &font, QStringView text) const override;
    double lineHeight(const PaperFont &font) const override;

private:
    QSizeF m_dpi;
    mutable std::deque<DeviceFont> m_fonts;
};

/// Height of the font in dots: points at the device's resolution, a whole number. Sizes that are
/// not positive or absurd are taken as 8 or 1000 points.
int pixelSize(const PaperFont &font, double dpiY);
