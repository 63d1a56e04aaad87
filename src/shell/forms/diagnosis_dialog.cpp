#include "shell/forms/diagnosis_dialog.h"

#include "shell/forms/diagnosis_view.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DiagnosisDialog::DiagnosisDialog(Diagnosis &diagnosis, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(u"Sunucu Tanılaması"_s);
    auto *view = new DiagnosisView(diagnosis);
    auto *close = new QPushButton(u"Ka&pat"_s);
    close->setDefault(true);
    view->addButton(close);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    (new QVBoxLayout(this))->addWidget(view);
    resize(760, 600);
    close->setFocus();
}
