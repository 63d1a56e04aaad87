#include "labels/designer/forms/sheet_view.h"

#include "labels/designer/designer_session.h"
#include "labels/designer/sheet_preview.h"
#include "paper/millimetres.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastDpi = 20;
constexpr double kMostDpi = 300;
constexpr double kStep = 1.25;
constexpr qint64 kMostPlaces = 500; ///< of a sheet whose places one can still count

} // namespace

SheetView::SheetView(DesignerSession &session, QWidget *parent)
    : QDialog(parent), m_session(session), m_area(new QScrollArea), m_page(new QLabel)
{
    setObjectName(u"SheetView"_s);
    setWindowTitle(u"Sayfa Görünümü"_s);
    m_page->setObjectName(u"sayfa"_s);
    m_page->setAlignment(Qt::AlignCenter);
    m_area->setWidget(m_page);
    m_area->setWidgetResizable(true);
    m_area->setBackgroundRole(QPalette::Mid);
    m_area->setFocusPolicy(Qt::StrongFocus);
    auto *buttons = new QHBoxLayout;
    const auto button = [&](const QString &text, auto act) {
        auto *made = new QPushButton(text);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        buttons->addWidget(made);
        return made;
    };
    button(u"&Sığdır"_s, [this] { setZoom(0); });
    button(u"&Gerçek boy"_s, [this] { setZoom(screen()->physicalDotsPerInch()); });
    button(u"&Yaklaş"_s, [this] { setZoom((m_dpi > 0 ? m_dpi : fittingDpi()) * kStep); });
    button(u"&Uzaklaş"_s, [this] { setZoom((m_dpi > 0 ? m_dpi : fittingDpi()) / kStep); });
    buttons->addStretch();
    const qint64 places = session.places();
    if (places > 1 && places <= kMostPlaces) {
        auto *label = new QLabel(u"İlk &etiketin yeri:"_s);
        auto *place = new QSpinBox;
        place->setObjectName(u"yer"_s);
        place->setRange(1, static_cast<int>(places));
        place->setValue(static_cast<int>(session.firstPlace()));
        label->setBuddy(place);
        buttons->addWidget(label);
        buttons->addWidget(place);
        connect(place, &QSpinBox::valueChanged, this, [this](int value) {
            m_session.setFirstPlace(value);
            paintPage();
        });
    }
    button(u"&Kapat"_s, [this] { accept(); })->setDefault(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(new QLabel(session.calibrationText(session.editor().layout())));
    column->addWidget(m_area, 1);
    column->addLayout(buttons);
    resize(QSize(760, 680).boundedTo(this->screen()->availableSize() * 9 / 10));
}

double SheetView::fittingDpi() const
{
    const QSizeF paper = m_session.printJob().paper;
    if (paper.isEmpty())
        return kLeastDpi;
    const QSizeF room = QSizeF(m_area->maximumViewportSize()) - QSizeF(16, 16);
    return std::min(room.width() / paper.width(), room.height() / paper.height()) * kMmPerInch;
}

void SheetView::setZoom(double dpi)
{
    m_dpi = dpi > 0 ? std::clamp(dpi, kLeastDpi, kMostDpi) : 0;
    paintPage();
}

void SheetView::paintPage()
{
    const qreal ratio = devicePixelRatioF();
    const double dpi = m_dpi > 0 ? m_dpi : std::max(fittingDpi(), kLeastDpi);
    QImage image =
        previewSheet(m_session.printJob(), m_session.sheetOf(m_session.editor().layout()),
                     m_session.pictures().path(), dpi * ratio);
    image.setDevicePixelRatio(ratio);
    if (image.isNull())
        m_page->setText(u"Tasarımda kâğıt ölçüsü yok; Sayfa Ayarı'ndan girin."_s);
    else
        m_page->setPixmap(QPixmap::fromImage(image));
}

void SheetView::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    if (m_dpi <= 0)
        paintPage();
}

void SheetView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier))
        setZoom((m_dpi > 0 ? m_dpi : fittingDpi()) *
                (event->angleDelta().y() > 0 ? kStep : 1 / kStep));
    else
        QDialog::wheelEvent(event);
}
