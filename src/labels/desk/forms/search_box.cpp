#include "labels/desk/forms/search_box.h"

#include "labels/desk/forms/form_keys.h"

SearchBox::SearchBox(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::returnPressed, this, [this] {
        selectAll();
        Q_EMIT searched(text());
    });
    onKey(this, Qt::Key_Tab, [this] { Q_EMIT left(); });
    onKey(this, Qt::Key_Down, [this] { Q_EMIT left(); });
}

void SearchBox::enter()
{
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}
