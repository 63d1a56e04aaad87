#include "labels/desk/forms/fytdegisbul.h"

#include "ui_fytdegisbul.h"

fytdegisbul::fytdegisbul(PriceChangeRequest &request, QWidget *parent)
    : QDialog(parent), m_request(request), m_ui(std::make_unique<Ui::fytdegisbul>())
{
    m_ui->setupUi(this);
    const ChangeRange range = m_request.usualRange();
    m_ui->tr1->setDate(range.from);
    m_ui->tr2->setDate(range.to);
    m_ui->sat1->setTime(range.start);
    m_ui->sat2->setTime(range.end);
    connect(m_ui->bul, &QPushButton::clicked, this, &fytdegisbul::find);
    connect(m_ui->kapat, &QPushButton::clicked, this, &fytdegisbul::reject);
}

fytdegisbul::~fytdegisbul() = default;

void fytdegisbul::enter()
{
    m_ui->tr1->setFocus(Qt::ShortcutFocusReason);
}

void fytdegisbul::find()
{
    m_request.send({m_ui->tr1->date(), m_ui->tr2->date(), m_ui->sat1->time(), m_ui->sat2->time()});
}
