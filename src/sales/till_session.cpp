#include "sales/till_session.h"

#include "common/amount.h"
#include "common/digits.h"
#include "common/program.h"
#include "common/scale_prefixes.h"
#include "common/settings_database.h"
#include "common/whole_file.h"
#include "sales/host_fault.h"
#include "sales/quantity.h"
#include "sales/receipt_printing.h"
#include "sales/receipt_store.h"
#include "sales/text_receipt.h"

using namespace Qt::StringLiterals;

namespace {

/// A text without anything but digits that is too long for cash: somebody scanned into its box.
bool isScan(QStringView cash)
{
    const auto value = amount::parse(cash);
    return value && *value > quantity::kMostCash && areDigits(cash);
}

/// What is to be given to the customer, or still to be taken.
QString changeRemark(const QString &change)
{
    if (change.startsWith(u'-'))
        return u"   Eksik: "_s + change.sliced(1);
    return change == u"0,00" ? QString() : u"   Para üstü: "_s + change;
}

} // namespace

TillSession::TillSession(Program &program, QObject *parent)
    : TillLists(parent), m_program(program), m_work(program),
      m_sounds(program.sounds, program.directory(), m_settings),
      m_lookup(program, m_sounds, program.kdvtab, m_settings), m_codes(program)
{}

void TillSession::load()
{
    m_settings = oku(m_program.files());
    m_layout = receipt_store::fisoku(m_program.files());
    m_lookup.setScales(readScaleRules(m_program.keys, m_program.path(kScaleFile)));
    Q_EMIT settingsLoaded();
    m_codes.check(m_settings, m_cashier.code);
    Q_EMIT codesChecked(m_codes.unknown());
}

// ---- entry

void TillSession::enterCode(const QString &code)
{
    if (code.isEmpty())
        return;
    const TillWork::Step step(m_work, [&code] { return code; });
    enter(code, m_mode);
}

void TillSession::enterStock(const QString &code)
{
    const TillWork::Step step(m_work, [&code] { return code; });
    enter(code, EntryMode::stockCode);
}

void TillSession::enter(const QString &code, EntryMode mode)
{
    forgetPosted(activeList());
    const bool byBarcode = mode == EntryMode::barcode;
    for (int number = 0; number < kSaleLists; ++number)
        if (!byBarcode || number == activeList())
            resetCash(number);

    m_refusedCode.clear();
    const auto entry = quantity::parseEntry(code);
    if (!entry) {
        m_sounds.calsesoff();
        Q_EMIT noticed(u"\"%1\": "_s.arg(code) + quantity::refusal(), Notice::fault);
        Q_EMIT entryRefused();
        return;
    }
    SaleList &lines = active().lines;
    try {
        const LookupResult result =
            byBarcode ? m_lookup.listebarkodkontrol(lines, entry->code, entry->quantity)
                      : m_lookup.listestokkodkontrol(lines, entry->code, entry->quantity);
        Q_EMIT entryCleared();
        const bool sold = result.row >= 0;
        const bool fine = sold && result.remark.isEmpty();
        Q_EMIT noticed(result.remark, fine ? Notice::done : Notice::fault);
        if (sold) {
            makeCurrent(activeList(), result.row);
            hesapla(activeList());
            if (result.outcome == LookupResult::Outcome::added)
                askForFreeLine(activeList(), result.row);
        }
    } catch (const HostError &error) {
        m_sounds.calsesoff();
        Q_EMIT noticed(u"Aranamadı: %1 (%2)"_s.arg(code, error.text()), Notice::fault);
        if (!error.connectionLost()) {
            Q_EMIT entryCleared();
            return;
        }
        m_refusedCode = code;
        Q_EMIT entryRefused();
        m_work.later([this] { tellConnectionLost(m_program); });
    }
}

/// A discount that takes the whole price is the way to give goods away.
void TillSession::askForFreeLine(int number, int row)
{
    if (!m_settings.kasa.silsifre || !pricing::isGivenAway(at(number).lines.line(row)))
        return;
    m_work.later([this, number, row] {
        if (!permitted(u"Sıfır fiyatla satmak"_s))
            removeLine(number, row);
    });
}

bool TillSession::permitted(const QString &what) const
{
    return !m_settings.kasa.silsifre || isPassword({}) || (permission && permission(what));
}

bool TillSession::isPassword(const QString &typed) const
{
    return settings::isPassword(settings::read(m_program.files(), {u"login"}).login.sifre, typed);
}

void TillSession::tellNotEntered(const QStringList &texts)
{
    m_sounds.calsesoff();
    Q_EMIT noticed(u"Girilmedi, yeniden girin: "_s + texts.join(u", "_s), Notice::fault);
}

void TillSession::toggleEntryMode()
{
    m_mode = m_mode == EntryMode::barcode ? EntryMode::stockCode : EntryMode::barcode;
    Q_EMIT entryModeChanged();
}

void TillSession::sil()
{
    const int row = active().currentRow();
    if (row < 0)
        return;
    m_work.later([this, row, number = activeList()] {
        if (!m_program.ask(u"Kaydi Silmek Istediginize Eminmisiniz...?"_s) ||
            !permitted(u"Satır silmek"_s))
            return;
        removeLine(number, row);
    });
}

// ---- cash and customer

TillSession::CashEntry TillSession::acceptCash(int number)
{
    const TillList &list = at(number);
    const QString typed = list.cash().trimmed();
    if (typed.isEmpty()) {
        resetCash(number);
        return CashEntry::taken;
    }
    if (isScan(typed)) {
        setCash(number, u"0,00"_s);
        enterCode(typed);
        return CashEntry::scan;
    }
    const auto given = quantity::parseCash(typed);
    if (!given) {
        m_sounds.calsesoff(); // nobody looks
        Q_EMIT noticed(
            u"Alınan para okunamadı: \"%1\". En çok %2; ondalık ayırıcı virgüldür."_s.arg(
                list.cash(), amount::money(quantity::kMostCash)),
            Notice::fault);
        return CashEntry::refused;
    }
    if (!list.postedTotal().isEmpty() || list.payment() != Payment::cash)
        return CashEntry::taken; // Enter in an untouched box
    Q_EMIT noticed({}, Notice::done);
    // An untouched box gives no cash: nothing is owed then.
    if (const QString money = amount::money(*given); money != list.cash())
        setCash(number, money);
    return CashEntry::taken;
}

Customer TillSession::customer() const
{
    const Customer &chosen = at(activeList()).customer();
    return chosen.code.isEmpty() ? Customer{m_settings.stok.carikod, m_settings.stok.cari} : chosen;
}

void TillSession::setCustomer(const Customer &customer)
{
    const bool usual = customer.code == m_settings.stok.carikod;
    active().setCustomer(usual ? Customer() : customer);
    Q_EMIT customerChanged();
}

// ---- posting and receipt

void TillSession::setCashier(const Cashier &cashier)
{
    m_cashier = cashier;
    Q_EMIT cashierChanged();
}

std::unique_ptr<CashierChoice> TillSession::cashierChoice()
{
    auto choice = std::make_unique<CashierChoice>(m_program, m_settings.per.per);
    const TillWork::Step step(m_work, [] { return u"kasiyerler"_s; });
    try {
        choice->load();
    } catch (const HostError &error) {
        m_work.later([this, error] { tellHostFault(m_program, error); });
    }
    return choice;
}

std::unique_ptr<Finder> TillSession::itemFinder() const
{
    return std::make_unique<ItemFinder>(m_program, m_lookup);
}

std::unique_ptr<Finder> TillSession::customerFinder() const
{
    return std::make_unique<CustomerFinder>(m_program);
}

void TillSession::search(Finder &finder, const QString &text)
{
    const TillWork::Step step(m_work, [&text] { return text; });
    try {
        finder.search(text);
    } catch (const HostError &error) {
        m_work.later([this, error] { tellHostFault(m_program, error); });
    }
}

Sale TillSession::capture(int number) const
{
    Sale sale = at(number).capture();
    sale.cashierCode = m_cashier.code;
    sale.cashierName = m_cashier.name;
    sale.moment = m_program.clock.now();
    return sale;
}

void TillSession::post(const QString &unentered)
{
    // A second F2 may arrive while a message of the first one is on screen.
    if (m_work.busy())
        return;
    const TillWork::Step step(m_work, [] { return u"kodlar"_s; });
    m_work.guarded([&] {
        if (mayPost(unentered))
            postActive();
    });
}

void TillSession::postActive()
{
    PostingProgress progress;
    const TillWork::Step step(
        m_work, [&progress] { return u"kayıt %1 / %2"_s.arg(progress.step).arg(progress.steps); });
    m_work.guarded([&] { postList(activeList(), progress); });
}

/// Nothing that was typed or scanned may be passed over when a sale is closed.
bool TillSession::mayPost(const QString &unentered)
{
    if (!unentered.isEmpty()) {
        m_sounds.calsesoff();
        Q_EMIT noticed(
            u"Satış kaydedilmedi: \"%1\" girilmedi. Enter ile girin ya da Esc ile silin."_s.arg(
                unentered),
            Notice::fault);
        Q_EMIT entryRefused();
        return false;
    }
    if (!yaziciseciver(m_program.printers, m_settings.yazici.yazici1)) {
        m_work.later([this] {
            m_program.warn(u"Yazıcı Bulunamadı.Ayarlardan Yazıcı Kontrolu Yapıp Tekrar "
                           "Deneyiniz..."_s);
        });
        return false;
    }
    if (active().lines.isEmpty()) {
        tellEmpty(activeList());
        return false;
    }
    const CashEntry cash = acceptCash(activeList());
    if (cash == CashEntry::refused)
        Q_EMIT cashRefused();
    return cash == CashEntry::taken && mayPostOnCodes();
}

bool TillSession::mayPostOnCodes()
{
    const bool may = m_codes.mayPost(m_settings, m_cashier.code);
    Q_EMIT codesChecked(m_codes.unknown());
    if (!may)
        m_work.later([this] {
            if (m_codes.accept())
                postActive();
            else
                Q_EMIT noticed(
                    u"Satış kaydedilmedi: kodları muhasebede ya da ayarlarda düzeltin."_s,
                    Notice::fault);
        });
    return may;
}

/// An impatient second F2 hears again what was saved.
void TillSession::tellEmpty(int number)
{
    const TillList &list = at(number);
    if (list.postedTotal().isEmpty())
        Q_EMIT noticed(u"%1 listesi boş, kaydedilecek satış yok."_s.arg(caption(number)),
                       Notice::fault);
    else
        Q_EMIT noticed(u"Satış kaydedildi: %1"_s.arg(list.postedTotal()) +
                           changeRemark(list.change()),
                       Notice::done);
}

void TillSession::postList(int number, PostingProgress &progress)
{
    const Sale sale = capture(number);
    if (!m_witness->mayBegin(number))
        return;
    const PostingResult result = faturakaydet(m_program, m_settings, sale, progress, *m_witness);
    if (result.posted()) {
        clearSold(number, sale);
        at(number).lastReceipt = Receipt{sale, drawReceiptNumber()};
        m_witness->numbered(at(number).lastReceipt->number);
        if (m_settings.yazici.yazdirma)
            print(*at(number).lastReceipt);
    }
    tellOutcome(number, sale, result);
}

QString TillSession::drawReceiptNumber()
{
    m_layout.lastNumber = QString::number(m_layout.lastNumber.toLongLong() + 1); // 0: unreadable
    receipt_store::saveNumber(m_program.files(), m_layout.lastNumber);
    return m_layout.lastNumber;
}

void TillSession::print(const Receipt &receipt)
{
    try {
        printReceipt(m_program.printers, m_settings.yazici.yazici1, drawReceipt(m_layout, receipt));
    } catch (const PrintError &error) {
        m_work.later([this, cause = error.text()] {
            m_program.warn(u"Fiş yazdırılamadı: %1\nSatış kayıtlı; fişi F12 ile yeniden "
                           "yazdırabilirsiniz."_s.arg(cause));
        });
    }
}

void TillSession::reprint()
{
    if (!active().lastReceipt) {
        Q_EMIT noticed(u"%1 listesinin yazdırılacak fişi yok."_s.arg(caption(activeList())),
                       Notice::fault);
        return;
    }
    m_work.guarded([this] { print(*active().lastReceipt); });
}

void TillSession::tellOutcome(int number, const Sale &sale, const PostingResult &result)
{
    if (!result.posted())
        Q_EMIT noticed(u"Satış kaydedilemedi; %1 listesi duruyor."_s.arg(caption(number)),
                       Notice::fault);
    else if (result.missing() > 0)
        Q_EMIT noticed(u"Satış eksik kaydedildi: %1"_s.arg(sale.totals.grand) +
                           changeRemark(sale.change),
                       Notice::warning);
    else
        tellEmpty(number);
    if (result.connectionLost)
        m_work.later([this] { tellConnectionLost(m_program); });
    // A server that was never reached has nothing to be completed.
    const bool untouched = !result.posted() && result.connectionLost && result.uncertain == 0;
    if (result.missing() == 0 || untouched)
        return;
    m_work.later([this, report = reportOf(result, sale)] { Q_EMIT postedIncompletely(report); });
}

void TillSession::printReport(const PostingReport &report)
{
    try {
        printReceipt(m_program.printers, m_settings.yazici.yazici1,
                     drawText(m_layout, report.text));
    } catch (const PrintError &error) {
        m_program.warn(u"Yazdırılamadı: %1"_s.arg(error.text()));
    }
}

void TillSession::saveReport(const PostingReport &report, const QString &path)
{
    if (!writeTextFile(path, QString(report.text).replace(u'\n', u"\r\n"_s)))
        m_program.warn(u"Dosya yazılamadı: "_s + path);
}

// ---- opening and closing

bool TillSession::mayClose()
{
    const TillWork::Step step(m_work, [] { return QString(); });
    const QString lists = listsWithGoods();
    return lists.isEmpty() ||
           m_program.ask(lists + u"  LİSTESİNDE ÜRÜN BULUNUYOR KAPATIRSANIZ TÜM ÜRÜNLER "
                                 "SİLİNECEKTİR. YİNEDE KAPATMAK İSTİYORMUSUNUZ...?"_s);
}

void TillSession::askToClose()
{
    m_work.later([this] {
        if (!mayClose())
            return;
        discard();
        Q_EMIT closeAllowed();
    });
}

void TillSession::discard()
{
    setCashier({});
    for (int number = 0; number < kSaleLists; ++number) {
        clearList(number);
        forgetPosted(number);
    }
}

QList<int> TillSession::columnWidths() const
{
    return olcuyukle(m_program.files());
}

void TillSession::saveColumnWidths(const QList<int> &widths)
{
    olcukaydet(m_program.files(), widths);
}
