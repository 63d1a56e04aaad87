#include "labels/layout/forms/barkod.h"

#include "common/windows_colour.h"
#include "labels/layout/property_bag.h"
#include "paper/millimetres.h"
#include "paper/turned_text.h"

#include <QPainter>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr uint kSystemColour = 0x80000000;
constexpr int kMargin = 1; ///< pixels around the text, room for the border

/// The font of a newly placed control.
QFont newFont()
{
    return QFont(u"Wingdings 2"_s, 8);
}

PaperFont paperFont(const QFont &font, int dpi)
{
    const double points =
        font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * kPointsPerInch / dpi;
    return {.name = font.family(),
            .size = points,
            .bold = font.bold(),
            .italic = font.italic(),
            .underline = font.underline(),
            .strikeThrough = font.strikeOut()};
}

} // namespace

Barkod::Barkod(const QString &name, QWidget *parent)
    : QWidget(parent), m_caption(name), m_font(newFont())
{
    setObjectName(name);
    Cls();
}

template <typename Value>
void Barkod::set(Value &property, const Value &value, const QString &key)
{
    property = value;
    Q_EMIT propertyChanged(key);
    Cls();
}

void Barkod::setAngle(float degrees)
{
    set(m_angle, degrees, u"Angle"_s);
}

void Barkod::setCaption(const QString &text)
{
    set(m_caption, text, u"Caption"_s);
}

void Barkod::setAutoSize(bool on)
{
    set(m_autoSize, on, u"AutoSize"_s);
}

void Barkod::setColorStyle(int style)
{
    set(m_colorStyle, style, u"ColorStyle"_s);
}

void Barkod::setBackColor(uint colour)
{
    set(m_backColor, colour, u"BackColor"_s);
}

void Barkod::setForeColor(uint colour)
{
    set(m_foreColor, colour, u"ForeColor"_s);
}

void Barkod::setActive(bool on)
{
    setEnabled(on);
    set(m_active, on, u"Enabled"_s);
}

void Barkod::setCaptionFont(const QFont &font)
{
    set(m_font, font, u"Font"_s);
}

void Barkod::setBackStyle(int style)
{
    set(m_backStyle, style, u"BackStyle"_s);
}

void Barkod::setBorderStyle(int style)
{
    set(m_borderStyle, style, u"BorderStyle"_s);
}

void Barkod::setPosX(int x)
{
    set(m_posX, x, u"PosX"_s);
}

void Barkod::setPosY(int y)
{
    set(m_posY, y, u"PosY"_s);
}

void Barkod::writeProperties(PropertyBag &bag) const
{
    bag.write(u"Angle"_s, m_angle);
    bag.write(u"Caption"_s, m_caption);
    bag.write(u"Autosize"_s, m_autoSize);
    bag.write(u"ColorStyle"_s, m_colorStyle);
    bag.write(u"BackColor"_s, m_backColor);
    bag.write(u"ForeColor"_s, m_foreColor);
    bag.write(u"Enabled"_s, m_active);
    bag.write(u"Font"_s, m_font);
    bag.write(u"BackStyle"_s, m_backStyle);
    bag.write(u"BorderStyle"_s, m_borderStyle);
    bag.write(u"PosX"_s, m_posX);
    bag.write(u"PosY"_s, m_posY);
}

void Barkod::readProperties(const PropertyBag &bag)
{
    m_angle = bag.read(u"Angle"_s, 90).toFloat();
    m_caption = bag.read(u"Caption"_s, objectName()).toString();
    m_autoSize = bag.read(u"AutoSize"_s, true).toBool();
    m_colorStyle = bag.read(u"ColorStyle"_s, 2).toInt();
    m_backColor = bag.read(u"BackColor"_s, 0x8000000FU).toUInt();
    m_foreColor = bag.read(u"ForeColor"_s, 0U).toUInt();
    m_active = bag.read(u"Enabled"_s, true).toBool();
    m_font = bag.read(u"Font"_s, newFont()).value<QFont>();
    m_backStyle = bag.read(u"BackStyle"_s, 0).toInt();
    m_borderStyle = bag.read(u"BorderStyle"_s, 0).toInt();
    m_posX = bag.read(u"PosX"_s, 100).toInt();
    m_posY = bag.read(u"PosY"_s, 1000).toInt();
    setEnabled(m_active);
    Cls();
}

void Barkod::Cls()
{
    draw();
    update();
    Q_EMIT redrawn();
}

void Barkod::draw()
{
    const bool outer = std::exchange(m_drawing, true); // a new size must not draw once more
    const int angle = normalisedAngle(static_cast<double>(m_angle));
    const DeviceFont font(paperFont(m_font, logicalDpiY()), logicalDpiY());
    const TurnedBox box = turnedBox(angle, font, m_caption);
    if (m_autoSize)
        resize(box.size + QSize(2 * kMargin, 2 * kMargin));
    m_drawing = outer;

    const qreal ratio = devicePixelRatioF();
    m_surface = QImage((QSizeF(size()) * ratio).toSize().expandedTo({1, 1}),
                       QImage::Format_ARGB32_Premultiplied);
    m_surface.setDevicePixelRatio(ratio);
    m_surface.fill(m_backStyle == 0 ? QColor(Qt::transparent) : resolved(m_backColor));
    QPainter painter(&m_surface);
    painter.setPen(resolved(m_foreColor));
    if (m_borderStyle != 0)
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    drawTurnedText(painter, box.start + QPoint(kMargin, kMargin), angle, font, m_caption);
}

QColor Barkod::resolved(uint colour) const
{
    if ((colour & kSystemColour) == 0)
        return colourOf(static_cast<int>(colour));
    static constexpr std::array<std::pair<uint, QPalette::ColorRole>, 6> roles = {
        {{5, QPalette::Base},
         {8, QPalette::WindowText},
         {13, QPalette::Highlight},
         {14, QPalette::HighlightedText},
         {15, QPalette::Button},
         {18, QPalette::ButtonText}}};
    for (const auto &[number, role] : roles)
        if (number == (colour & ~kSystemColour))
            return palette().color(QPalette::Active, role);
    return Qt::black;
}

void Barkod::paintEvent(QPaintEvent *)
{
    if (m_surface.devicePixelRatio() != devicePixelRatioF())
        draw(); // moved to another screen
    QPainter(this).drawImage(0, 0, m_surface);
}

void Barkod::resizeEvent(QResizeEvent *)
{
    if (!m_drawing)
        draw();
}
