#include "shell/forms/password_edit.h"

#include <QKeyEvent>

namespace {

bool changesText(const QKeyEvent &key)
{
    return key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete ||
           key.matches(QKeySequence::Paste) ||
           (!key.text().isEmpty() && key.text().front().isPrint());
}

} // namespace

PasswordEdit::PasswordEdit(QWidget *parent) : QLineEdit(parent)
{
    setEchoMode(Password);
    connect(this, &QLineEdit::textChanged, this, &PasswordEdit::forgetEmptied);
}

void PasswordEdit::setStored(const QString &password)
{
    setText(password);
    m_stored = !password.isEmpty();
    showLetters();
}

void PasswordEdit::setReadable(bool on)
{
    m_readable = on;
    showLetters();
}

void PasswordEdit::keyPressEvent(QKeyEvent *event)
{
    if (m_stored && changesText(*event))
        setText({}); // leaves nothing behind to be undone
    QLineEdit::keyPressEvent(event);
}

/// What comes into the box by other ways than keys (a drop, a paste with the mouse) stays hidden
/// with the stored rest until the box has been empty.
void PasswordEdit::forgetEmptied()
{
    if (text().isEmpty())
        m_stored = false;
    showLetters();
}

void PasswordEdit::showLetters()
{
    setEchoMode(m_readable && !m_stored ? Normal : Password);
}
