#include "labels/designer/forms/save_dialog.h"

#include "labels/designer/designer_session.h"
#include "ui_save_dialog.h"

#include <QFileInfo>

SaveDialog::SaveDialog(DesignerSession &session, QWidget *parent)
    : QDialog(parent), m_session(session), m_ui(std::make_unique<Ui::SaveDialog>())
{
    m_ui->setupUi(this);
    m_ui->ad->setText(QFileInfo(session.fileName()).completeBaseName());
    m_ui->ad->selectAll();
    m_ui->varsayilan->setChecked(session.isDefault());
    connect(m_ui->kaydet, &QPushButton::clicked, this, &SaveDialog::save);
    connect(m_ui->vazgec, &QPushButton::clicked, this, &SaveDialog::reject);
}

SaveDialog::~SaveDialog() = default;

/// A name that was refused stays in its box.
void SaveDialog::save()
{
    if (m_session.kaydet(m_ui->ad->text(), m_ui->varsayilan->isChecked()))
        QDialog::accept();
}

void SaveDialog::reject()
{
    m_session.saveAbandoned();
    QDialog::reject();
}
