#include "sales/forms/permission_box.h"

#include "ui_permission_box.h"

using namespace Qt::StringLiterals;

PermissionBox::PermissionBox(const QString &what, std::function<bool(const QString &)> fits,
                             QWidget *parent)
    : QDialog(parent), m_fits(std::move(fits)), m_ui(std::make_unique<Ui::PermissionBox>())
{
    m_ui->setupUi(this);
    m_ui->what->setText(u"%1 için ayarların parolası gerekir."_s.arg(what));
    connect(m_ui->tamam, &QPushButton::clicked, this, &PermissionBox::accept);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &PermissionBox::reject);
    m_ui->parola->setFocus();
}

PermissionBox::~PermissionBox() = default;

void PermissionBox::accept()
{
    if (m_fits(m_ui->parola->text())) {
        QDialog::accept();
        return;
    }
    m_ui->fault->setText(u"Yanlış parola."_s);
    m_ui->parola->clear();
    m_ui->parola->setFocus();
}
