#include "shell/forms/kakknd.h"

#include "shell/forms/look.h"
#include "ui_kakknd.h"

#include <QApplication>

using namespace Qt::StringLiterals;

kakknd::kakknd(QWidget *parent) : QDialog(parent), m_ui(std::make_unique<Ui::kakknd>())
{
    m_ui->setupUi(this);
    m_ui->Image1->setPixmap(programIcon().pixmap(64));
    m_ui->Image2->setPixmap(barcodePicture(QSize(72, 48)));
    m_ui->Label1->setText(
        u"<b style='font-size:large'>Tezgâh %1</b>"_s.arg(QApplication::applicationVersion()));
    m_ui->Label2->setText(u"Küçük dükkânlar için barkod etiketi ve hızlı satış."_s);
    connect(m_ui->button1, &QPushButton::clicked, this, &kakknd::accept);
}

kakknd::~kakknd() = default;
