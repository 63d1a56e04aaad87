#pragma once

#include <QDate>
#include <QLineEdit>
#include <QTime>

#include <optional>

/// A box for one date or time. Whoever comes to it or clicks into it finds its text marked, so that
/// what is typed or pasted takes the place of all of it; the left and right arrows lead into the
/// text, up and down count on. When the box is left or Enter is pressed it shows what it
/// understood; a text it does not understand stays in red.
class TypedBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit TypedBox(QWidget *parent = nullptr);

protected:
    /// What the box shows for this text; "" when it does not understand it.
    virtual QString understood(const QString &text) const = 0;
    /// The text so many steps on from the one shown.
    virtual QString stepped(int steps) const = 0;

    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void settle();
};

class DateBox final : public TypedBox
{
    Q_OBJECT
    Q_PROPERTY(QDate date READ date WRITE setDate)

public:
    explicit DateBox(QWidget *parent = nullptr);

    /// Also what a date without month or year is completed with.
    void setDate(QDate date);
    /// Invalid when the text is no date.
    QDate date() const;

protected:
    QString understood(const QString &text) const override;
    QString stepped(int steps) const override;

private:
    void openCalendar();

    QDate m_today;
};

class TimeBox final : public TypedBox
{
    Q_OBJECT

public:
    using TypedBox::TypedBox;

    void setTime(QTime time);
    /// Invalid when the text is no time.
    QTime time() const;

protected:
    QString understood(const QString &text) const override;
    QString stepped(int steps) const override;
};
