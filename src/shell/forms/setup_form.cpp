#include "shell/forms/setup_form.h"

#include "shell/forms/diagnosis_view.h"
#include "shell/setup_session.h"
#include "ui_setup_form.h"

#include <QFileDialog>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

constexpr double kQuestionPoints = 15;
const QColor kFaultColour(0xA0, 0x20, 0x20);
const QColor kDoneColour(0x1B, 0x7A, 0x3D);

void fill(QComboBox *box, const QStringList &names, const QString &current)
{
    box->clear();
    box->addItems(names);
    box->setCurrentIndex(static_cast<int>(names.indexOf(current)));
    if (box->isEditable())
        box->setEditText(current);
}

} // namespace

SetupForm::SetupForm(SetupSession &session, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::SetupForm>()), m_session(session)
{
    m_ui->setupUi(this);
    QFont large = font();
    large.setPointSizeF(kQuestionPoints);
    m_ui->question->setFont(large);
    m_ui->wayDemo->setVisible(session.occasion() == SetupSession::Occasion::firstStart);
    m_ui->diagnosisLayout->addWidget(new DiagnosisView(session.diagnosis()));
    m_ui->codePage->setChoices(session.choices());
    for (QComboBox *box : {m_ui->company, m_ui->master})
        box->setCompleter(nullptr); // a name that was typed is meant as it is
    connectAnswers();
    connectSession();
    showStep();
}

SetupForm::~SetupForm() = default;

void SetupForm::connectAnswers()
{
    const auto way = [this](QAbstractButton *button, SetupWay chosen) {
        connect(button, &QAbstractButton::clicked, &m_session,
                [this, chosen] { m_session.chooseWay(chosen); });
    };
    way(m_ui->wayDemo, SetupWay::demo);
    way(m_ui->wayOwn, SetupWay::ownLedger);
    way(m_ui->wayOther, SetupWay::otherTill);
    for (const QLineEdit *box :
         {m_ui->server, m_ui->user, static_cast<QLineEdit *>(m_ui->serverPassword)})
        connect(box, &QLineEdit::textChanged, this, &SetupForm::takeServer);
    for (const QComboBox *box : {m_ui->company, m_ui->master})
        connect(box, &QComboBox::currentTextChanged, this, &SetupForm::takeDatabases);
    for (const QLineEdit *box : {m_ui->password, m_ui->again})
        connect(box, &QLineEdit::textChanged, this, &SetupForm::takePassword);
    connect(m_ui->codePage, &CodePage::searched, &m_session, &SetupSession::search);
    connect(m_ui->codePage, &CodePage::chosen, &m_session, &SetupSession::choose);
    connect(m_ui->printerList, &QListWidget::currentTextChanged, this, &SetupForm::takePrinter);
    connect(m_ui->afterSale, &QCheckBox::toggled, this, &SetupForm::takePrinter);
    connect(m_ui->layoutList, &QComboBox::currentTextChanged, this, &SetupForm::takePrinter);
    connect(m_ui->test, &QPushButton::clicked, &m_session, &SetupSession::printTest);
    connect(m_ui->browse, &QPushButton::clicked, this, &SetupForm::browse);
    connect(m_ui->readAgain, &QPushButton::clicked, this, [this] {
        m_session.readAgain();
        focusPage();
    });
    connect(m_ui->next, &QPushButton::clicked, this, &SetupForm::goOn);
    connect(m_ui->back, &QPushButton::clicked, &m_session, &SetupSession::back);
    connect(m_ui->cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void SetupForm::connectSession()
{
    connect(&m_session, &SetupSession::stepChanged, this, &SetupForm::showStep);
    connect(&m_session, &SetupSession::ledgerChanged, this, &SetupForm::showLedger);
    connect(&m_session, &SetupSession::refused, this,
            [this](const QString &why) { notice(why, true); });
    connect(&m_session, &SetupSession::told, this,
            [this](const QString &what) { notice(what, false); });
    connect(&m_session, &SetupSession::finished, this, [this] { QDialog::done(Accepted); });
}

QWidget *SetupForm::pageOf(SetupStep step) const
{
    switch (step) {
    case SetupStep::way:
        return m_ui->wayPage;
    case SetupStep::folder:
        return m_ui->folderPage;
    case SetupStep::server:
        return m_ui->serverPage;
    case SetupStep::databases:
        return m_ui->databasesPage;
    case SetupStep::diagnosis:
        return m_ui->diagnosisPage;
    case SetupStep::receiptPrinter:
    case SetupStep::labelPrinter:
        return m_ui->printerPage;
    case SetupStep::password:
        return m_ui->passwordPage;
    case SetupStep::summary:
        return m_ui->summaryPage;
    default:
        return m_ui->codePage;
    }
}

bool SetupForm::isBusy() const
{
    return m_session.ledger().isReading() || m_session.diagnosis().isRunning();
}

// ---- showing

void SetupForm::showStep()
{
    const SetupStep step = m_session.step();
    const SetupQuestion asked = setupQuestion(step);
    m_ui->question->setText(asked.question);
    m_ui->explanation->setText(asked.explanation);
    m_ui->explanation->setVisible(!asked.explanation.isEmpty());
    m_ui->pages->setCurrentWidget(pageOf(step));
    const bool first = m_session.number() == 1;
    m_ui->progress->setText(
        first ? QString() : u"Adım %1 / %2"_s.arg(m_session.number()).arg(m_session.count()));
    m_ui->back->setVisible(!first);
    m_ui->next->setVisible(!first);
    m_ui->next->setText(step == SetupStep::summary ? u"&Bitir"_s : u"İ&leri"_s);
    m_ui->next->setDefault(true);
    {
        const QScopedValueRollback showing(m_showing, true);
        showAnswers();
    }
    showLedger();
    focusPage();
}

void SetupForm::showAnswers()
{
    const Settings &settings = m_session.answers().settings;
    m_ui->server->setText(settings.server.server);
    m_ui->user->setText(settings.server.kuladi);
    if (m_ui->serverPassword->text() != settings.server.sifre)
        m_ui->serverPassword->setStored(settings.server.sifre);
    if (m_session.step() == SetupStep::password && m_ui->password->text().isEmpty()) {
        m_ui->password->setStored(settings.login.sifre);
        m_ui->again->setStored(m_session.answers().passwordAgain);
    }
    showPrinters();
    m_ui->summary->setPlainText(m_session.step() == SetupStep::summary ? m_session.summary()
                                                                       : QString());
}

void SetupForm::showPrinters()
{
    const SetupStep step = m_session.step();
    const bool labels = step == SetupStep::labelPrinter;
    if (!labels && step != SetupStep::receiptPrinter)
        return;
    const SetupAnswers &answers = m_session.answers();
    m_ui->printerList->clear();
    m_ui->printerList->addItems(m_session.printers());
    const auto found = m_ui->printerList->findItems(
        labels ? answers.labelPrinter : answers.settings.yazici.yazici1, Qt::MatchExactly);
    m_ui->printerList->setCurrentItem(found.isEmpty() ? nullptr : found.first());
    m_ui->afterSale->setChecked(answers.settings.yazici.yazdirma);
    m_ui->afterSale->setVisible(!labels);
    m_ui->layoutRow->setVisible(labels);
    if (labels)
        fill(m_ui->layoutList, m_session.layouts(), answers.layout);
}

/// What has been read of the server, as soon as it has.
void SetupForm::showLedger()
{
    const QScopedValueRollback showing(m_showing, true);
    const SetupLedger &ledger = m_session.ledger();
    const SetupStep step = m_session.step();
    const Settings::Server &server = m_session.answers().settings.server;
    const CodeQuestion *question = codeQuestion(step);
    if (step == SetupStep::databases) {
        fill(m_ui->company, ledger.databases().companiesFirst(), server.sql);
        fill(m_ui->master, ledger.databases().mastersFirst(), server.msql);
    } else if (question) {
        m_ui->codePage->begin(m_session.chosen(*question).code);
    }
    m_ui->readAgain->setVisible(m_session.mayReadAgain());
}

void SetupForm::notice(const QString &text, bool fault)
{
    QPalette palette = m_ui->notice->palette();
    palette.setColor(QPalette::WindowText, fault ? kFaultColour : kDoneColour);
    m_ui->notice->setPalette(palette);
    m_ui->notice->setText(text);
}

/// The box or list that the question is answered in.
void SetupForm::focusPage()
{
    QWidget *const page = m_ui->pages->currentWidget();
    if (page == m_ui->codePage || page == m_ui->summaryPage || page == m_ui->diagnosisPage) {
        (page == m_ui->codePage ? page : m_ui->next)->setFocus();
        return;
    }
    for (QWidget *control = page->nextInFocusChain(); control != page;
         control = control->nextInFocusChain())
        if (page->isAncestorOf(control) && control->isVisibleTo(page) &&
            (control->focusPolicy() & Qt::TabFocus)) {
            control->setFocus();
            return;
        }
}

void SetupForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    focusPage();
}

// ---- answering

void SetupForm::takeServer()
{
    if (!m_showing)
        m_session.setServer(m_ui->server->text(), m_ui->user->text(), m_ui->serverPassword->text());
}

void SetupForm::takeDatabases()
{
    if (!m_showing)
        m_session.setDatabases(m_ui->master->currentText(), m_ui->company->currentText());
}

void SetupForm::takePrinter()
{
    if (m_showing)
        return;
    const auto *item = m_ui->printerList->currentItem();
    const QString printer = item ? item->text() : QString();
    if (m_session.step() == SetupStep::receiptPrinter)
        m_session.setReceiptPrinter(printer, m_ui->afterSale->isChecked());
    else
        m_session.setLabelPrinter(m_ui->layoutList->currentText(), printer);
}

void SetupForm::takePassword()
{
    if (!m_showing)
        m_session.setPassword(m_ui->password->text(), m_ui->again->text());
}

void SetupForm::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, u"Öbür kasanın klasörü"_s, m_ui->folder->text());
    if (!chosen.isEmpty())
        m_ui->folder->setText(QDir::toNativeSeparators(chosen));
}

void SetupForm::goOn()
{
    if (m_ui->password->hasFocus() && m_ui->again->text() != m_ui->password->text())
        m_ui->again->setFocus();
    else if (m_session.step() == SetupStep::folder)
        m_session.takeFolder(QDir::fromNativeSeparators(m_ui->folder->text()));
    else
        m_session.next();
}

/// Closing the window is leaving, too.
void SetupForm::done(int result)
{
    if (m_session.mayAbandon())
        QDialog::done(result);
}
