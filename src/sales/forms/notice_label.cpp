#include "sales/forms/notice_label.h"

#include "sales/forms/growing_type.h"

namespace {

const QColor kFaultColour(0xB0, 0x10, 0x10);
const QColor kWarningColour(0x9A, 0x4B, 0x00);
const QColor kUsualColour(0x0B, 0x6E, 0x6E);

constexpr qsizetype kMostCharacters = 160; // not a whole code of 500 characters
constexpr double kLargePoints = 20;
constexpr double kSmallPoints = 12;

const QColor &colourOf(Notice kind)
{
    switch (kind) {
    case Notice::fault:
        return kFaultColour;
    case Notice::warning:
        return kWarningColour;
    case Notice::done:
        break;
    }
    return kUsualColour;
}

} // namespace

void NoticeLabel::tell(const QString &text, Notice kind)
{
    m_fits = true;
    setFont(fitting(text));
    setText(text.size() > kMostCharacters ? text.first(kMostCharacters) + u'…' : text);
    setAutoFillBackground(!text.isEmpty());
    paintGround(colourOf(kind));
}

/// The largest type in which the text stands on one line, else the smallest.
QFont NoticeLabel::fitting(const QString &text) const
{
    const int room = contentsRect().width() - 2 * margin();
    QFont type = font();
    type.setPointSizeF(kLargePoints * typeGrowth(*window()));
    while (type.pointSizeF() > kSmallPoints && QFontMetrics(type).horizontalAdvance(text) > room)
        type.setPointSizeF(type.pointSizeF() - 1.0);
    return type;
}

void NoticeLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (m_fits)
        setFont(fitting(text()));
}

void NoticeLabel::showMode(const QString &text, bool usual)
{
    setText(text);
    paintGround(usual ? kUsualColour : kWarningColour);
}

void NoticeLabel::paintGround(const QColor &colour)
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colour);
    colours.setColor(QPalette::WindowText, Qt::white);
    setPalette(colours);
}
