#pragma once

#include <QLineEdit>

/// A box for a password. Who looks over the shoulder or sits down at an open settings dialog may
/// see what is being typed, never what is stored: the first key begins the password anew.
class PasswordEdit final : public QLineEdit
{
    Q_OBJECT

public:
    explicit PasswordEdit(QWidget *parent = nullptr);

    /// Holds a stored password, hidden for as long as it stands there.
    void setStored(const QString &password);

    /// Whether typed letters are shown.
    void setReadable(bool on);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void forgetEmptied();
    void showLetters();

    bool m_stored = false;
    bool m_readable = false;
};
