#pragma once

#include <QDialog>

#include <memory>

class LoginSession;

namespace Ui {
class login;
}

/// The password dialog in front of the settings.
class login final : public QDialog
{
    Q_OBJECT

public:
    explicit login(LoginSession &session, QWidget *parent = nullptr);
    ~login() override;

private:
    void askAgain();

    std::unique_ptr<Ui::login> m_ui;
};
