#include "shell/forms/look.h"

#include <QApplication>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kAccent = 0xFF0B6E6E;

void drawBars(QPainter &painter, const QRect &box)
{
    // Widths of bar, gap, bar, gap …, for a look only: nothing is encoded.
    static constexpr std::array<int, 15> widths = {2, 1, 1, 2, 3, 1, 1, 1, 2, 2, 1, 1, 3, 1, 2};
    const double unit = box.width() / 24.0;
    double x = box.left();
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (i % 2 == 0)
            painter.fillRect(QRectF(x, box.top(), widths[i] * unit, box.height()), Qt::black);
        x += widths[i] * unit;
    }
}

QPixmap iconPicture(int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kAccent));
    painter.drawRoundedRect(QRectF(0, 0, size, size), size * 0.16, size * 0.16);
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(size * 0.14, size * 0.24, size * 0.72, size * 0.52));
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawBars(painter, QRectF(size * 0.2, size * 0.31, size * 0.6, size * 0.38).toRect());
    return picture;
}

/// Points. Where little room is left (1366 × 768 at 150 %) every form fits with the smaller text,
/// which is still larger to the eye than the usual one is at 100 %.
double textSize()
{
    constexpr int narrow = 1000;
    return QGuiApplication::primaryScreen()->availableSize().width() < narrow ? 9 : 10.5;
}

} // namespace

void applyLook(QApplication &app)
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette palette(QColor(0xF3, 0xF4, 0xF4));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF4, 0xF8, 0xF8));
    palette.setColor(QPalette::Highlight, QColor(kAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(kAccent));
    palette.setColor(QPalette::PlaceholderText, QColor(0x70, 0x78, 0x78));
    QApplication::setPalette(palette);

    QFont font = QApplication::font();
    font.setPointSizeF(textSize());
    QApplication::setFont(font);
    app.setWindowIcon(programIcon());
}

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(iconPicture(size));
    return icon;
}

QPixmap barcodePicture(QSize size)
{
    QPixmap picture(size);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawBars(painter, QRect(QPoint(4, 4), size - QSize(8, 8)));
    return picture;
}

void fitToScreen(QWidget &form)
{
    constexpr QSize frame(16, 40);                         // of the window, which is not there yet
    const bool sized = form.testAttribute(Qt::WA_Resized); // else it opens as its layout wants
    const QSize wanted = sized ? form.size() : form.sizeHint();
    const QSize fitting = wanted.boundedTo(form.screen()->availableSize() - frame);
    if (fitting != wanted)
        form.resize(fitting);
}
