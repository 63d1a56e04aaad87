#include "shell/forms/parametre.h"

#include "common/amount.h"
#include "common/settings_database.h"
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

/// Shows a stored name also when the list does not hold it (the host may be away, a font be left
/// out).
void select(QComboBox *list, const QString &name, int index)
{
    list->setCurrentIndex(index);
    list->setPlaceholderText(name);
    if (index < 0 && list->isEditable())
        list->setEditText(name);
}

QString shownName(const QComboBox *list)
{
    return list->currentIndex() < 0 && !list->isEditable() ? list->placeholderText()
                                                           : list->currentText();
}

void refill(QComboBox *list, const QStringList &entries)
{
    const QString current = shownName(list);
    const QSignalBlocker quiet(list);
    list->clear();
    list->addItems(entries);
    select(list, current, static_cast<int>(entries.indexOf(current)));
}

/// Which setting a control shows; written at the control, in the form's file.
QString settingOf(const QWidget *control)
{
    return control->property("ayar").toString();
}

void showSetting(QWidget *control, const SettingPlace &place)
{
    const QString text = storedText(place);
    if (auto *password = qobject_cast<PasswordEdit *>(control))
        password->setStored(text);
    else if (auto *edit = qobject_cast<QLineEdit *>(control))
        edit->setText(text);
    else if (auto *box = qobject_cast<QCheckBox *>(control))
        box->setChecked(text.toInt() == 1);
    else if (auto *colour = qobject_cast<QLabel *>(control))
        showColour(colour, text.toInt());
    else if (auto *list = qobject_cast<QComboBox *>(control))
        select(list, text,
               std::holds_alternative<int *>(place) ? text.toInt() : list->findText(text));
}

void takeSetting(const QWidget *control, const SettingPlace &place)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(control))
        takeStored(place, edit->text());
    else if (const auto *box = qobject_cast<const QCheckBox *>(control))
        takeStored(place, box->isChecked() ? u"1"_s : u"0"_s);
    else if (const auto *colour = qobject_cast<const QLabel *>(control))
        takeStored(place, QString::number(shownColour(colour)));
    else if (const auto *list = qobject_cast<const QComboBox *>(control))
        takeStored(place, std::holds_alternative<int *>(place)
                              ? QString::number(list->currentIndex())
                              : shownName(list));
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
    for (PasswordEdit *password : {m_ui->lgpass, m_ui->pass})
        connect(m_ui->goster, &QCheckBox::toggled, password, &PasswordEdit::setReadable);
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
    connect(m_ui->setup, &QPushButton::clicked, this, &parametre::leaveForSetup);
    connect(m_ui->diagnose, &QPushButton::clicked, this, [this] {
        const Settings v = entered();
        Q_EMIT diagnosisWanted(
            {v.server.server, v.server.kuladi, v.server.sifre, v.server.msql, v.server.sql});
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

QWidgetList parametre::settingControls() const
{
    QWidgetList controls = findChildren<QWidget *>();
    controls.removeIf([](const QWidget *control) { return settingOf(control).isEmpty(); });
    return controls;
}

void parametre::display(const Settings &shown)
{
    Settings values = shown;
    for (QWidget *control : settingControls())
        showSetting(control, settings::placeOf(values, settingOf(control)));
    m_ui->instance->setEnabled(values.instan.inskullan);
    showColour(m_ui->renkl, values.liste.listrenk.row);
    showColour(m_ui->renkl1, values.liste.listrenk.alternate);
    const Settings::Stok &stok = values.stok;
    const CodeList &prices = m_session.lists().priceTypes;
    select(m_ui->br1fyt, stok.br1fytadi, prices.find(stok.br1fytadi, stok.br1fyt));
    select(m_ui->br2fyt, stok.br2fytadi, prices.find(stok.br2fytadi, stok.br2fyt));
}

Settings parametre::entered() const
{
    Settings values = m_session.values();
    for (const QWidget *control : settingControls())
        takeSetting(control, settings::placeOf(values, settingOf(control)));
    values.liste.listrenk = {shownColour(m_ui->renkl), shownColour(m_ui->renkl1)};
    Settings::Stok &stok = values.stok;
    // With no price type chosen there is no code to take; the stored one stays, so that saving a
    // corrected server name while the host is away does not lose the shop's prices.
    const auto takePrice = [this](const QComboBox *list, QString &name, QString &code) {
        name = shownName(list);
        if (list->currentIndex() >= 0)
            code = m_session.lists().priceTypes.code(list->currentIndex());
    };
    takePrice(m_ui->br1fyt, stok.br1fytadi, stok.br1fyt);
    takePrice(m_ui->br2fyt, stok.br2fytadi, stok.br2fyt);
    return values;
}

void parametre::serverkaydet()
{
    m_obstacle = m_session.obstacle();
    warn();
    if (!m_obstacle.isEmpty())
        return; // nothing could be saved: what was typed stays on screen
    Settings values = entered();
    if (!m_session.settlePassword(values)) {
        m_ui->tabs->setCurrentWidget(m_ui->tabServer);
        m_ui->lgpass->setFocus();
        return;
    }
    m_session.serverkaydet(values);
    accept();
}

void parametre::leaveForSetup()
{
    if (!m_session.mayDrop(entered()))
        return;
    reject();
    Q_EMIT setupWanted();
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

/// Saving reports nothing, so what would be lost is said while it is typed.
void parametre::warn()
{
    QStringList texts = SettingsSession::warnings(entered());
    if (!m_obstacle.isEmpty())
        texts.prepend(m_obstacle);
    m_ui->uyari->setText(texts.join(u'\n'));
    m_ui->uyari->setVisible(!texts.isEmpty());
}
