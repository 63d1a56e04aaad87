#include "labels/designer/forms/colour_button.h"

#include "common/windows_colour.h"

#include <QColorDialog>
#include <QPainter>

using namespace Qt::StringLiterals;

ColourButton::ColourButton(QWidget *parent) : QToolButton(parent)
{
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(this, &QToolButton::clicked, this, &ColourButton::choose);
    showColour(0);
}

void ColourButton::showColour(std::optional<int> colour)
{
    m_colour = colour;
    QPixmap patch(QSize(16, 16) * devicePixelRatioF());
    patch.setDevicePixelRatio(devicePixelRatioF());
    patch.fill(colour ? colourOf(*colour) : Qt::transparent);
    QPainter(&patch).drawRect(0, 0, 15, 15);
    setIcon(patch);
    setText(colour ? colourOf(*colour).name().toUpper() : u"çeşitli"_s);
}

void ColourButton::choose()
{
    const QColor chosen = QColorDialog::getColor(colourOf(m_colour.value_or(0)), this, u"Renk"_s);
    if (!chosen.isValid())
        return;
    showColour(colourNumber(chosen));
    Q_EMIT edited(*m_colour);
}
