#pragma once

#include <QLineEdit>

class ListView;

/// A small box over the head of a list that finds rows in it. It comes up when somebody types into
/// the list, and goes with Escape or with the focus. Enter and the arrows go on to the next row and
/// back.
class ListFinder final : public QLineEdit
{
    Q_OBJECT

public:
    explicit ListFinder(ListView &list);

    /// Comes up with the first letters of what is looked for.
    void start(const QString &text);
    /// Takes its place over the list's captions.
    void place();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    /// Goes to the next row that shows the text, from `from` on.
    void find(int from, int step);
    void leave();

    ListView &m_list;
};
