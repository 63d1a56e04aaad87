#include "labels/desk/forms/typed_box.h"

#include "labels/desk/typed_moment.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QWidgetAction>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kWrong = 0xFFB00020;

/// A leaf of a calendar in the colour of the text.
QIcon calendarIcon(const QWidget &box)
{
    constexpr int side = 32;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(QPen(box.palette().color(QPalette::Text), 2));
    painter.drawRect(4, 7, 24, 21);
    painter.fillRect(4, 7, 24, 7, painter.pen().color());
    for (const int x : {10, 16, 22})
        for (const int y : {19, 24})
            painter.drawPoint(x, y);
    return picture;
}

} // namespace

TypedBox::TypedBox(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::editingFinished, this, &TypedBox::settle);
    connect(this, &QLineEdit::textChanged, this, [this] { setPalette({}); });
}

void TypedBox::settle()
{
    const QString shown = understood(text());
    if (!shown.isEmpty()) {
        if (shown != text())
            setText(shown);
        return;
    }
    QPalette wrong = palette();
    wrong.setColor(QPalette::Text, QColor(kWrong));
    setPalette(wrong);
}

void TypedBox::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    selectAll();
}

/// A click sets the cursor; unless something was marked by dragging, all is marked again.
void TypedBox::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (!hasSelectedText())
        selectAll();
}

void TypedBox::keyPressEvent(QKeyEvent *event)
{
    const bool up = event->key() == Qt::Key_Up;
    if (!up && event->key() != Qt::Key_Down) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const QString next = stepped(up ? 1 : -1);
    if (!next.isEmpty())
        setText(next);
    selectAll();
}

DateBox::DateBox(QWidget *parent) : TypedBox(parent)
{
    QAction *calendar = addAction(calendarIcon(*this), QLineEdit::TrailingPosition);
    calendar->setToolTip(u"Takvim"_s);
    connect(calendar, &QAction::triggered, this, &DateBox::openCalendar);
}

void DateBox::setDate(QDate date)
{
    m_today = date;
    setText(typed_moment::text(date));
}

QDate DateBox::date() const
{
    return typed_moment::date(text(), m_today).value_or(QDate());
}

QString DateBox::understood(const QString &text) const
{
    const auto date = typed_moment::date(text, m_today);
    return date ? typed_moment::text(*date) : QString();
}

QString DateBox::stepped(int steps) const
{
    return date().isValid() ? typed_moment::text(date().addDays(steps)) : QString();
}

void DateBox::openCalendar()
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto *calendar = new QCalendarWidget(menu);
    calendar->setDateEditEnabled(false); // a date is typed in the box itself
    calendar->setLocale(QLocale(QLocale::Turkish, QLocale::Turkey));
    calendar->setFirstDayOfWeek(Qt::Monday);
    if (date().isValid())
        calendar->setSelectedDate(date());
    auto *holder = new QWidgetAction(menu);
    holder->setDefaultWidget(calendar);
    menu->addAction(holder);
    const auto take = [this, menu](QDate day) {
        setText(typed_moment::text(day));
        menu->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    menu->popup(mapToGlobal(rect().bottomLeft()));
    calendar->setFocus();
}

void TimeBox::setTime(QTime time)
{
    setText(typed_moment::text(time));
}

QTime TimeBox::time() const
{
    return typed_moment::time(text()).value_or(QTime());
}

QString TimeBox::understood(const QString &text) const
{
    const auto time = typed_moment::time(text);
    return time ? typed_moment::text(*time) : QString();
}

QString TimeBox::stepped(int steps) const
{
    return time().isValid() ? typed_moment::text(time().addSecs(steps * 60)) : QString();
}
