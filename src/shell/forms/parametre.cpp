#include "shell/forms/parametre.h"

#include "common/amount.h"
#include "common/windows_colour.h"
#include "shell/diagnosis_finding.h"
#include "shell/settings_session.h"
#include "ui_parametre.h"

#include <QColorDialog>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestSize = 48; ///< points, for the sample and list fonts

void showColour(QLabel *box, int number)
{
    QPalette palette = box->palette();
    palette.setColor(QPalette::Window, colourOf(number));
    box->setPalette(palette);
}

int shownColour(const QLabel *box)
{
    return colourNumber(box->palette().color(QPalette::Window));
}

/// Shows a stored name also when the list does not hold it (the host may be away).
void select(QComboBox *list, const QString &name, int index)
{
    list->setCurrentIndex(index);
    list->setPlaceholderText(name);
}

QString shownName(const QComboBox *list)
{
    return list->currentIndex() < 0 ? list->placeholderText() : list->currentText();
}

void refill(QComboBox *list, const QStringList &entries)
{
    const QString current = list->currentText();
    const QSignalBlocker quiet(list);
    list->clear();
    list->addItems(entries);
    list->setCurrentIndex(static_cast<int>(entries.indexOf(current)));
}

} // namespace

parametre::parametre(SettingsSession &session, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::parametre>()), m_session(session)
{
    m_ui->setupUi(this);
    QPalette warning = m_ui->uyari->palette();
    warning.setColor(QPalette::WindowText, QColor(0xA0, 0x20, 0x20));
    m_ui->uyari->setPalette(warning);
    m_ui->stl->addItems({u"Normal"_s, u"Kalın"_s, u"İtalik"_s, u"Kalın İtalik"_s});
    yaziyukle();
    yazyukle();
    m_session.load();
    m_obstacle = m_session.obstacle();
    fillCodeLists();
    display(m_session.values());

    connect(m_ui->button1, &QPushButton::clicked, this, &parametre::serverkaydet);
    connect(m_ui->button2, &QPushButton::clicked, this, &parametre::reject);
    connect(m_ui->Check1, &QCheckBox::toggled, m_ui->instance, &QWidget::setEnabled);
    connect(m_ui->Check2, &QCheckBox::toggled, this, &parametre::yaziyukle);
    connect(m_ui->goster, &QCheckBox::toggled, this, &parametre::showPasswords);
    connectColour(m_ui->button3, m_ui->renkl);
    connectColour(m_ui->button4, m_ui->yzrnk);
    connectColour(m_ui->button5, m_ui->renkl1);
    connectSample(m_ui->yz1, m_ui->sz1, m_ui->orn1, u"10"_s);
    connectSample(m_ui->yz2, m_ui->sz2, m_ui->orn2, u"14"_s);
    connectSample(m_ui->yz3, m_ui->sz3, m_ui->orn3, u"20"_s);
    for (const QLineEdit *edit : findChildren<QLineEdit *>())
        connect(edit, &QLineEdit::textChanged, this, &parametre::warn);
    for (const QComboBox *list : findChildren<QComboBox *>())
        connect(list, &QComboBox::currentIndexChanged, this, &parametre::warn);
    connect(m_ui->button6, &QPushButton::clicked, this, &parametre::receiptLayoutWanted);
    connect(m_ui->diagnose, &QPushButton::clicked, this, [this] {
        const ParameterValues v = entered();
        Q_EMIT diagnosisWanted({v.srvadi, v.kladi, v.pass, v.mastersql, v.sqladi});
    });
    warn();
    m_ui->srvadi->setFocus(); // else the row of tabs would take the first letters
}

parametre::~parametre() = default;

void parametre::yaziyukle()
{
    QStringList families = m_ui->Check2->isChecked()
                               ? QFontDatabase::families()
                               : QFontDatabase::families(QFontDatabase::Latin);
    families.removeIf([](const QString &name) { return QFontDatabase::isPrivateFamily(name); });
    for (QComboBox *list : {m_ui->fnt, m_ui->yz1, m_ui->yz2, m_ui->yz3})
        refill(list, families);
    QStringList sizes;
    for (int size = 6; size <= kLargestSize; size += size < 20 ? 1 : 4)
        sizes += QString::number(size);
    for (QComboBox *list : {m_ui->sz, m_ui->sz1, m_ui->sz2, m_ui->sz3})
        refill(list, sizes);
}

void parametre::yazyukle()
{
    m_ui->yazici->addItems(m_session.printers());
}

void parametre::fillCodeLists()
{
    const ParameterLists &lists = m_session.lists();
    m_ui->dep->addItems(lists.depots.names);
    for (QComboBox *list : {m_ui->fytp, m_ui->br1fyt, m_ui->br2fyt})
        list->addItems(lists.priceTypes.names);
    m_ui->stkfistip->addItems(lists.stockSlips.names);
    m_ui->cr->addItems(lists.customers.names);
    m_ui->crfistip->addItems(lists.accountSlips.names);
    m_ui->ftfistip->addItems(lists.invoiceTypes.names);
}

void parametre::display(const ParameterValues &v)
{
    m_ui->kdv->setText(v.kdv);
    m_ui->uses1->setChecked(v.uses1);
    m_ui->uses2->setChecked(v.uses2);
    select(m_ui->yazici, v.yazici, m_ui->yazici->findText(v.yazici));
    m_ui->fisyazdir->setChecked(v.fisyazdir);
    m_ui->lgpass->setText(v.lgpass);
    m_ui->kladi->setText(v.kladi);
    m_ui->pass->setText(v.pass);
    m_ui->srvadi->setText(v.srvadi);
    m_ui->sqladi->setText(v.sqladi);
    m_ui->mastersql->setText(v.mastersql);
    m_ui->instance->setText(v.instance);
    m_ui->Check1->setChecked(v.Check1);
    m_ui->instance->setEnabled(v.Check1);
    m_ui->c1->setChecked(v.c1);
    m_ui->c2->setChecked(v.c2);
    m_ui->c3->setChecked(v.c3);
    showColour(m_ui->yzrnk, v.yzrnk);
    showColour(m_ui->renkl, v.renkl);
    showColour(m_ui->renkl1, v.renkl1);
    m_ui->bsl->setText(v.bsl);
    m_ui->stl->setCurrentIndex(v.stl);
    select(m_ui->fnt, v.fnt, m_ui->fnt->findText(v.fnt));
    m_ui->sz->setEditText(v.sz);
    m_ui->pers->setChecked(v.pers);
    select(m_ui->br1fyt, v.br1fyt, v.br1fytIndex);
    select(m_ui->br2fyt, v.br2fyt, v.br2fytIndex);
    const std::pair<QComboBox *, const QString &> shownOnly[] = {{m_ui->dep, v.dep},
                                                                 {m_ui->fytp, v.fytp},
                                                                 {m_ui->cr, v.cr},
                                                                 {m_ui->stkfistip, v.stkfistip},
                                                                 {m_ui->crfistip, v.crfistip},
                                                                 {m_ui->ftfistip, v.ftfistip}};
    for (const auto &[list, name] : shownOnly)
        select(list, name, list->findText(name));
}

ParameterValues parametre::entered() const
{
    ParameterValues v = m_session.values();
    v.kdv = m_ui->kdv->text();
    v.uses1 = m_ui->uses1->isChecked();
    v.uses2 = m_ui->uses2->isChecked();
    v.yazici = shownName(m_ui->yazici);
    v.fisyazdir = m_ui->fisyazdir->isChecked();
    v.lgpass = m_ui->lgpass->text();
    v.kladi = m_ui->kladi->text();
    v.pass = m_ui->pass->text();
    v.srvadi = m_ui->srvadi->text();
    v.sqladi = m_ui->sqladi->text();
    v.mastersql = m_ui->mastersql->text();
    v.instance = m_ui->instance->text();
    v.Check1 = m_ui->Check1->isChecked();
    v.br1fyt = shownName(m_ui->br1fyt);
    v.br2fyt = shownName(m_ui->br2fyt);
    v.br1fytIndex = m_ui->br1fyt->currentIndex();
    v.br2fytIndex = m_ui->br2fyt->currentIndex();
    v.c1 = m_ui->c1->isChecked();
    v.c2 = m_ui->c2->isChecked();
    v.c3 = m_ui->c3->isChecked();
    v.yzrnk = shownColour(m_ui->yzrnk);
    v.renkl = shownColour(m_ui->renkl);
    v.renkl1 = shownColour(m_ui->renkl1);
    v.bsl = m_ui->bsl->text();
    v.stl = m_ui->stl->currentIndex();
    v.fnt = shownName(m_ui->fnt);
    v.sz = m_ui->sz->currentText();
    v.pers = m_ui->pers->isChecked();
    return v;
}

void parametre::serverkaydet()
{
    m_obstacle = m_session.obstacle();
    warn();
    if (!m_obstacle.isEmpty())
        return; // nothing could be saved: what was typed stays on screen
    m_session.serverkaydet(entered());
    accept();
}

void parametre::connectSample(QComboBox *family, QComboBox *size, QLabel *sample,
                              const QString &points)
{
    connect(family, &QComboBox::currentTextChanged, sample, [sample](const QString &name) {
        QFont font = sample->font();
        font.setFamily(name);
        sample->setFont(font);
    });
    connect(size, &QComboBox::currentTextChanged, sample, [sample](const QString &text) {
        const double chosen = amount::parse(text).value_or(0);
        if (chosen <= 0)
            return;
        QFont font = sample->font();
        font.setPointSizeF(chosen);
        sample->setFont(font);
    });
    family->setCurrentIndex(family->findText(sample->fontInfo().family()));
    size->setCurrentText(points);
}

void parametre::connectColour(QPushButton *button, QLabel *box)
{
    connect(button, &QPushButton::clicked, this, [this, box] {
        const QColor chosen =
            QColorDialog::getColor(colourOf(shownColour(box)), this, u"Renk Seçimi"_s);
        if (chosen.isValid())
            showColour(box, colourNumber(chosen));
    });
}

void parametre::showPasswords(bool visible)
{
    const auto mode = visible ? QLineEdit::Normal : QLineEdit::Password;
    m_ui->lgpass->setEchoMode(mode);
    m_ui->pass->setEchoMode(mode);
}

/// Saving reports nothing, so what would be lost is said while it is typed.
void parametre::warn()
{
    QStringList texts = SettingsSession::warnings(entered());
    if (!m_obstacle.isEmpty())
        texts.prepend(m_obstacle);
    m_ui->uyari->setText(texts.join(u'\n'));
    m_ui->uyari->setVisible(!texts.isEmpty());
}
