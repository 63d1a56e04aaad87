#include "shell/setup_session.h"

#include "common/settings_database.h"
#include "common/turkish.h"
#include "shell/setup_printing.h"
#include "shell/setup_summary.h"
#include "shell/setup_writing.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A new shop's looks and sounds; server and codes are asked for.
Settings firstAnswers()
{
    Settings values;
    for (const SettingRow &row : settingRows())
        if (row.place && row.table != u"server" && row.table != u"stok")
            takeStored(row.place(values), row.first);
    values.stok.ftfistip = u"3"_s; // the till's invoices are of no other type
    return values;
}

/// What neither the connection nor a settings file can hold.
QString badLetters(const QString &caption, const QString &text)
{
    for (const QChar letter : {u';', u'\''})
        if (text.contains(letter))
            return u"%1 içinde %2 kullanılamaz."_s.arg(caption).arg(letter);
    return {};
}

QString firstOf(std::initializer_list<QString> faults)
{
    for (const QString &fault : faults)
        if (!fault.isEmpty())
            return fault;
    return {};
}

/// An answer that there is no choice about.
void takeSole(QString &answer, const QStringList &choices)
{
    if (answer.isEmpty() && choices.size() == 1)
        answer = choices.first();
}

} // namespace

SetupSession::SetupSession(Program &program, HostProbe &probe, SetupPrinting &printing,
                           Occasion occasion, QObject *parent)
    : QObject(parent), m_program(program), m_printing(printing), m_occasion(occasion),
      m_steps(setupSteps(SetupWay::ownLedger)), m_ledger(probe), m_diagnosis(probe)
{
    m_answers.settings = occasion == Occasion::firstStart
                             ? firstAnswers()
                             : settings::read(program.files(), settingTables(LocalFile::settings));
    m_answers.passwordAgain = m_answers.settings.login.sifre;
    connect(&m_ledger, &SetupLedger::changed, this, [this] {
        if (!m_ledger.isReading() && step() == SetupStep::databases) {
            Settings::Server &server = m_answers.settings.server;
            takeSole(server.msql, m_ledger.databases().masters);
            takeSole(server.sql, m_ledger.databases().companies);
        }
        showChoices();
        Q_EMIT ledgerChanged();
        tellLedger();
    });
    connect(&m_diagnosis, &Diagnosis::finished, this, [this] {
        if (step() == SetupStep::diagnosis)
            Q_EMIT refused({});
    });
}

// ---- answers

void SetupSession::setServer(const QString &server, const QString &user, const QString &password)
{
    m_answers.settings.server.server = server.trimmed();
    m_answers.settings.server.kuladi = user.trimmed();
    m_answers.settings.server.sifre = password;
    Q_EMIT refused({});
}

void SetupSession::setDatabases(const QString &master, const QString &company)
{
    m_answers.settings.server.msql = master.trimmed();
    m_answers.settings.server.sql = company.trimmed();
    tellLedger();
}

HostCode SetupSession::chosen(const CodeQuestion &question) const
{
    const Settings::Stok &stok = m_answers.settings.stok;
    return {stok.*question.code, stok.*question.name};
}

void SetupSession::choose(int row)
{
    const CodeQuestion *question = codeQuestion(step());
    if (!question)
        return;
    const HostCode code = row < 0 ? HostCode() : m_choices.at(row);
    m_answers.settings.stok.*question->code = code.code;
    m_answers.settings.stok.*question->name = code.name;
    tellLedger();
}

void SetupSession::search(const QString &text)
{
    m_choices.search(text);
}

void SetupSession::setReceiptPrinter(const QString &printer, bool afterSale)
{
    m_answers.settings.yazici = {printer, afterSale};
}

void SetupSession::setLabelPrinter(const QString &layout, const QString &printer)
{
    m_answers.layout = layout;
    m_answers.labelPrinter = printer;
}

void SetupSession::setPassword(const QString &password, const QString &again)
{
    m_answers.settings.login.sifre = turkish::upper(password);
    m_answers.passwordAgain = turkish::upper(again);
    Q_EMIT refused({});
}

QString SetupSession::layoutsFrom() const
{
    return m_answers.other ? m_answers.other->directory : m_program.directory();
}

QStringList SetupSession::layouts() const
{
    return m_printing.layouts(layoutsFrom());
}

QString SetupSession::summary() const
{
    return setupSummary(m_answers);
}

DiagnosisTarget SetupSession::target() const
{
    const Settings::Server &server = m_answers.settings.server;
    return {server.server, server.kuladi, server.sifre, server.msql, server.sql};
}

// ---- steps

void SetupSession::chooseWay(SetupWay way)
{
    m_answers.way = way;
    m_steps = setupSteps(way);
    if (way != SetupWay::otherTill)
        m_answers.other.reset();
    if (way == SetupWay::demo)
        Q_EMIT finished(way);
    else
        go(1);
}

void SetupSession::takeFolder(const QString &path)
{
    try {
        m_answers.other = OtherTill::read(m_program.files(), path);
    } catch (const std::exception &error) {
        m_answers.other.reset();
        Q_EMIT refused(QString::fromUtf8(error.what()));
        return;
    }
    m_answers.settings.yazici = m_answers.other->settings.yazici;
    m_answers.layout.clear();
    go(1);
}

void SetupSession::next()
{
    if (const QString why = refusal(); !why.isEmpty()) {
        Q_EMIT refused(why);
        return;
    }
    if (!mayLeave())
        return;
    if (step() == SetupStep::summary)
        finish();
    else
        go(1);
}

void SetupSession::back()
{
    if (m_current > 0)
        go(-1);
}

void SetupSession::go(int by)
{
    m_current = std::clamp(m_current + by, 0, count() - 1);
    enter();
    Q_EMIT refused({});
    Q_EMIT stepChanged();
    tellLedger();
}

/// Readies what the step shows. What was read of the same server still holds, until its connection
/// is looked at anew.
void SetupSession::enter()
{
    const DiagnosisTarget now = target();
    const QString server = now.connectionTo(kServerDatabase.toString());
    const QString company = now.connectionTo(now.company);
    if (step() == SetupStep::databases && m_databasesOf != server) {
        m_databasesOf = server;
        m_ledger.readDatabases(now);
    } else if (step() == SetupStep::diagnosis) {
        m_codesOf.clear();
        m_diagnosis.start(now);
    } else if (codeQuestion(step()) && m_codesOf != company) {
        m_codesOf = company;
        m_lackingAccepted = false;
        m_ledger.readCodes(now);
    } else if (step() == SetupStep::labelPrinter && m_answers.layout.isEmpty()) {
        m_answers.layout = m_printing.defaultLayout(layoutsFrom());
        if (m_answers.layout.isEmpty())
            m_answers.layout = layouts().value(0);
        m_answers.labelPrinter = m_printing.printerOf(layoutsFrom(), m_answers.layout);
    }
    showChoices();
}

void SetupSession::readAgain()
{
    m_codesOf.clear();
    m_databasesOf.clear();
    enter();
}

bool SetupSession::mayReadAgain() const
{
    if (m_ledger.isReading())
        return false;
    return codeQuestion(step())
               ? m_choices.isEmpty()
               : step() == SetupStep::databases && m_ledger.databases().names.isEmpty();
}

void SetupSession::tellLedger()
{
    const CodeQuestion *question = codeQuestion(step());
    if (!question && step() != SetupStep::databases)
        return;
    if (m_ledger.isReading())
        Q_EMIT told(question ? u"Listeler okunuyor…"_s : u"Veritabanları okunuyor…"_s);
    else if (const QString why = question ? listFault(*question) : databasesFault(); !why.isEmpty())
        Q_EMIT refused(why);
    else
        Q_EMIT told(question ? QString() : databasesWord());
}

/// Why there is nothing to choose from, and what to do then.
QString SetupSession::listFault(const CodeQuestion &question) const
{
    if (!m_ledger.fault().isEmpty())
        return m_ledger.fault();
    if (m_ledger.lists().closed.contains(question.table.toString()))
        return u"Bu kullanıcı %1 listesini (%2) okuyamıyor: tablo yok ya da hakkı yok. Geri dönüp "
               "tanılamaya bakın; yalnız etiket basılacaksa boş geçebilirsiniz."_s.arg(
                   question.caption, question.table);
    return m_choices.isEmpty()
               ? u"Muhasebede hiç %1 tanımlı değil; satıştan önce orada tanımlayın."_s.arg(
                     question.caption)
               : QString();
}

QString SetupSession::databasesFault() const
{
    if (!m_ledger.fault().isEmpty())
        return m_ledger.fault() + u"\nAdları yazabilirsiniz; sonraki adım nedenine bakar."_s;
    return m_ledger.databases().names.isEmpty()
               ? u"Sunucu bu kullanıcıya açık bir veritabanı göstermiyor. Adlarını yazın: sonraki "
                 "adım bağlantıya bakar ve eksik hakları veren satırları gösterir."_s
               : QString();
}

QString SetupSession::databasesWord() const
{
    const Settings::Server &server = m_answers.settings.server;
    return server.sql.isEmpty() || server.msql.isEmpty()
               ? u"Bu kullanıcıya açık %1 veritabanı var: aşağı ok (↓) tuşuyla seçin."_s.arg(
                     m_ledger.databases().names.size())
               : QString();
}

void SetupSession::showChoices()
{
    const CodeQuestion *question = codeQuestion(step());
    if (!question)
        return;
    m_choices.setCodes(m_ledger.lists().codes.value(question->table.toString()));
    if (chosen(*question).code.isEmpty() && m_choices.rowCount() == 1)
        choose(0);
}

/// Why the step cannot be left yet.
QString SetupSession::refusal() const
{
    const Settings::Server &server = m_answers.settings.server;
    switch (step()) {
    case SetupStep::folder:
        return m_answers.other ? QString() : u"Öbür kasanın klasörünü gösterin."_s;
    case SetupStep::server:
        if (server.server.isEmpty())
            return u"Sunucunun adını yazın."_s;
        if (server.kuladi.isEmpty() && !isEmbedded(server.server))
            return u"Kullanıcının adını yazın."_s;
        return firstOf({badLetters(u"Sunucu"_s, server.server),
                        badLetters(u"Kullanıcı"_s, server.kuladi),
                        badLetters(u"Parola"_s, server.sifre)});
    case SetupStep::databases:
        if (server.msql.isEmpty() || server.sql.isEmpty())
            return u"İki veritabanının da adını seçin ya da yazın."_s;
        return firstOf({badLetters(u"Veritabanı adı"_s, server.msql),
                        badLetters(u"Veritabanı adı"_s, server.sql)});
    case SetupStep::diagnosis:
        return m_diagnosis.isRunning()
                   ? u"Tanılama sürüyor: bitmesini bekleyin ya da Durdur'a basın."_s
                   : QString();
    case SetupStep::receiptPrinter:
        return printers().contains(m_answers.settings.yazici.yazici1) ? QString()
                                                                      : u"Bir yazıcı seçin."_s;
    case SetupStep::labelPrinter:
        return layouts().isEmpty() || printers().contains(m_answers.labelPrinter)
                   ? QString()
                   : u"Bir yazıcı seçin."_s;
    case SetupStep::password:
        if (m_answers.settings.login.sifre != m_answers.passwordAgain)
            return u"İki parola aynı değil; yeniden yazın."_s;
        return badLetters(u"Parola"_s, m_answers.settings.login.sifre);
    default:
        break;
    }
    const CodeQuestion *question = codeQuestion(step());
    return question ? codeRefusal(*question) : QString();
}

/// A list that cannot be read may be passed: a machine that only prints labels has no right to some
/// of them.
QString SetupSession::codeRefusal(const CodeQuestion &question) const
{
    if (m_ledger.isReading())
        return u"Listeler okunuyor, bekleyin."_s;
    const HostCode code = chosen(question);
    if (!m_choices.isEmpty() && m_choices.find(code.code) < 0)
        return u"Listeden birini seçin."_s;
    return code.code.contains(u'\'') ? u"Kodunda tek tırnak (') olan kayıt kullanılamaz."_s
                                     : QString();
}

/// Asks about answers that can be meant, but mostly are not.
bool SetupSession::mayLeave()
{
    switch (step()) {
    case SetupStep::diagnosis:
        return m_diagnosis.passed() ||
               m_program.ask(u"Bağlantıda ✗ olan adımlar var; yanlarında ne yapılacağı yazar.\n\n"
                             "Yine de sürdürülsün mü?"_s);
    case SetupStep::password:
        return !m_answers.settings.login.sifre.isEmpty() ||
               m_program.ask(u"Parola boş kalırsa ayarları bilgisayarın başına geçen herkes "
                             "değiştirebilir.\n\nBoş kalsın mı?"_s);
    default:
        return !codeQuestion(step()) || mayLackCodes();
    }
}

/// Without its lists a till cannot be finished, but a server that is away today may be there when
/// the set-up is opened again. Once is enough.
bool SetupSession::mayLackCodes()
{
    if (m_ledger.fault().isEmpty() || m_lackingAccepted)
        return true;
    m_lackingAccepted = m_program.ask(
        u"Listeler okunamadığı için kodlar seçilemiyor; seçilmeden satış yapılamaz. Yeniden oku "
        "ile bir daha denenebilir.\n\nSeçmeden sürdürülsün mü?"_s);
    return m_lackingAccepted;
}

bool SetupSession::mayAbandon()
{
    return m_current == 0 || m_program.ask(u"Kurulum bırakılsın mı? Yanıtlar kaydedilmez."_s);
}

void SetupSession::printTest()
{
    const bool receipt = step() == SetupStep::receiptPrinter;
    const QString printer = receipt ? m_answers.settings.yazici.yazici1 : m_answers.labelPrinter;
    try {
        if (receipt)
            m_printing.printReceipt(printer);
        else
            m_printing.printLabel(layoutsFrom(), m_answers.layout, printer);
        Q_EMIT told(printer == kPdfPrinter ? u"Deneme, cikti klasörüne yazıldı."_s
                                           : u"Deneme %1 yazıcısına gönderildi."_s.arg(printer));
    } catch (const std::exception &error) {
        Q_EMIT refused(u"Basılamadı: %1"_s.arg(QString::fromUtf8(error.what())));
    }
}

void SetupSession::finish()
{
    try {
        writeSetup(m_program, m_printing, m_answers);
    } catch (const std::exception &error) {
        Q_EMIT refused(u"Kurulum yazılamadı: %1"_s.arg(QString::fromUtf8(error.what())));
        return;
    }
    Q_EMIT finished(m_answers.way);
}
