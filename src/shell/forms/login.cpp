#include "shell/forms/login.h"

#include "shell/login_session.h"
#include "ui_login.h"

login::login(LoginSession &session, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::login>())
{
    m_ui->setupUi(this);
    session.load();
    connect(m_ui->button1, &QPushButton::clicked, this,
            [this, &session] { session.enter(m_ui->lgpass->text()); });
    connect(&session, &LoginSession::accepted, this, &login::accept);
    connect(&session, &LoginSession::refused, this, &login::askAgain);
}

login::~login() = default;

void login::askAgain()
{
    m_ui->lgpass->clear();
    m_ui->lgpass->setFocus();
}
