#pragma once

#include <QWidget>

class TillSession;

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

/// What the customer sees on a second screen: the shop's name, the line that was entered last, the
/// total and the change.
class CustomerDisplay final : public QWidget
{
    Q_OBJECT

public:
    explicit CustomerDisplay(TillSession &session);

    /// Shows itself on a screen other than that of the till; hides where there is none, or when the
    /// settings do not ask for it.
    void place(const QWidget &till);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *addLabel(Qt::Alignment alignment, bool bold);
    void showSale();

    TillSession &m_session;
    QLabel *m_shop;
    QLabel *m_item;
    QLabel *m_itemPrice;
    QLabel *m_totalCaption;
    QLabel *m_total;
    QLabel *m_changeCaption;
    QLabel *m_change;
};
