#include "labels/desk/forms/list_finder.h"

#include "labels/desk/forms/list_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 260;
constexpr QRgb kNotFound = 0xFFB00020;

bool isOwnKey(int key)
{
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Up || key == Qt::Key_Down;
}

} // namespace

ListFinder::ListFinder(ListView &list) : QLineEdit(&list), m_list(list)
{
    setObjectName(u"listFinder"_s);
    setPlaceholderText(u"Listede bul"_s);
    setClearButtonEnabled(true);
    hide();
    connect(this, &QLineEdit::textEdited, this,
            [this] { find(std::max(m_list.selectedRow(), 0), 1); });
}

void ListFinder::start(const QString &text)
{
    setText(text);
    place();
    show();
    raise();
    setFocus(Qt::ShortcutFocusReason);
    deselect();
    find(std::max(m_list.selectedRow(), 0), 1);
}

void ListFinder::place()
{
    QRect place = m_list.header()->geometry(); // over the captions: it must not hide what it finds
    place.setLeft(place.right() - std::min(kWidth, place.width()) + 1);
    setGeometry(place);
}

void ListFinder::find(int from, int step)
{
    const int row = text().isEmpty() ? m_list.selectedRow() : m_list.findRow(text(), from, step);
    QPalette palette;
    if (row >= 0)
        m_list.selectRow(row);
    else if (!text().isEmpty())
        palette.setColor(QPalette::Text, QColor(kNotFound));
    setPalette(palette);
}

/// Its keys mean something else in the window.
bool ListFinder::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        isOwnKey(static_cast<QKeyEvent *>(event)->key())) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void ListFinder::keyPressEvent(QKeyEvent *event)
{
    const bool back =
        event->key() == Qt::Key_Up || (event->modifiers() & Qt::ShiftModifier) != Qt::NoModifier;
    if (event->key() == Qt::Key_Escape)
        leave();
    else if (isOwnKey(event->key()))
        find(m_list.selectedRow() + (back ? -1 : 1), back ? -1 : 1);
    else
        QLineEdit::keyPressEvent(event);
}

void ListFinder::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        hide();
}

void ListFinder::leave()
{
    m_list.setFocus(Qt::OtherFocusReason);
    hide();
}
