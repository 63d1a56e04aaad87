#include "sales/forms/customer_display.h"

#include "sales/till_session.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Heights of the texts over the height of the window.
constexpr double kShopHeight = 0.055;
constexpr double kItemHeight = 0.06;
constexpr double kCaptionHeight = 0.04;
constexpr double kFigureHeight = 0.16;
constexpr double kTotalWidth = 0.1; ///< of a figure over the width: nine characters must stand

void setPixels(QWidget &widget, double pixels)
{
    QFont font = widget.font();
    font.setPixelSize(std::max(qRound(pixels), 8));
    widget.setFont(font);
}

QScreen *otherScreen(const QWidget &till)
{
    for (QScreen *screen : QGuiApplication::screens())
        if (screen != till.screen())
            return screen;
    return nullptr;
}

} // namespace

CustomerDisplay::CustomerDisplay(TillSession &session)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_session(session)
{
    setObjectName(u"musteri"_s);
    setWindowTitle(u"Müşteri Ekranı"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0x0B, 0x3D, 0x3D));
    colours.setColor(QPalette::WindowText, Qt::white);
    setPalette(colours);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(32, 24, 32, 24);
    m_shop = addLabel(Qt::AlignHCenter, true);
    column->addStretch(1);
    m_item = addLabel(Qt::AlignLeft, false);
    m_itemPrice = addLabel(Qt::AlignRight, false);
    column->addStretch(1);
    m_totalCaption = addLabel(Qt::AlignLeft, true);
    m_total = addLabel(Qt::AlignRight, true);
    m_changeCaption = addLabel(Qt::AlignLeft, true);
    m_change = addLabel(Qt::AlignRight, true);
    m_item->setWordWrap(true);
    m_changeCaption->setText(u"PARA ÜSTÜ"_s);
    const auto follow = [this] { showSale(); };
    connect(&session, &TillSession::settingsLoaded, this, follow);
    connect(&session, &TillSession::totalsChanged, this, follow);
    connect(&session, &TillSession::cashChanged, this, follow);
    connect(&session, &TillSession::currentRowChanged, this, follow);
    connect(&session, &TillSession::activeListChanged, this, follow);
    showSale();
}

QLabel *CustomerDisplay::addLabel(Qt::Alignment alignment, bool bold)
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(alignment | Qt::AlignVCenter);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
    layout()->addWidget(label);
    return label;
}

void CustomerDisplay::place(const QWidget &till)
{
    QScreen *other = m_session.settings().kasa.musteri ? otherScreen(till) : nullptr;
    if (!other) {
        hide();
        return;
    }
    setGeometry(other->geometry());
    showFullScreen();
}

void CustomerDisplay::showSale()
{
    const int list = m_session.activeList();
    const QString &posted = m_session.postedTotal(list);
    const SaleLine *line = m_session.currentLine();
    m_shop->setText(m_session.settings().liste.title);
    m_item->setText(line ? (*line)[SaleColumn::name] : QString());
    m_itemPrice->setText(line ? (*line)[SaleColumn::quantity] + u" × "_s +
                                    (*line)[SaleColumn::price] + u" = "_s +
                                    (*line)[SaleColumn::net] + u" ₺"_s
                              : QString());
    m_totalCaption->setText(posted.isEmpty() ? u"TOPLAM"_s : u"TEŞEKKÜR EDERİZ"_s);
    m_total->setText((posted.isEmpty() ? m_session.totals(list).grand : posted) + u" ₺"_s);
    m_change->setText(m_session.change(list) + u" ₺"_s);
    const bool comes =
        m_session.change(list) != u"0,00" && !m_session.change(list).startsWith(u'-');
    m_changeCaption->setVisible(comes);
    m_change->setVisible(comes);
}

void CustomerDisplay::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setPixels(*m_shop, height() * kShopHeight);
    for (QLabel *label : {m_item, m_itemPrice})
        setPixels(*label, height() * kItemHeight);
    for (QLabel *label : {m_totalCaption, m_changeCaption})
        setPixels(*label, height() * kCaptionHeight);
    for (QLabel *label : {m_total, m_change})
        setPixels(*label, std::min(height() * kFigureHeight, width() * kTotalWidth));
}
