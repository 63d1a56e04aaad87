#include "sales/till_session.h"

#include "common/amount.h"
#include "common/program.h"
#include "sales/host_fault.h"
#include "sales/quantity.h"
#include "sales/receipt_printing.h"
#include "sales/receipt_store.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool isList(int number)
{
    return number >= 0 && number < kSaleLists;
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
    : QObject(parent), m_program(program), m_lookup(program, m_settings)
{}

void TillSession::load()
{
    m_settings = oku(m_program);
    m_layout = receipt_store::fisoku(m_program);
    Q_EMIT settingsLoaded();
}

QString TillSession::caption(int number)
{
    return u"SATIS%1"_s.arg(number + 1);
}

// ---- entry

void TillSession::enterCode(const QString &code)
{
    if (code.isEmpty())
        return;
    // The list under posting must not change; what is scanned meanwhile belongs to the next sale.
    if (m_posting) {
        m_heldCodes += code;
        Q_EMIT entryCleared();
        return;
    }
    const bool byBarcode = m_mode == EntryMode::barcode;
    for (int number = 0; number < kSaleLists; ++number)
        if (!byBarcode || number == m_active)
            resetCash(number);

    SaleList &lines = active().lines;
    try {
        const LookupResult result = byBarcode ? m_lookup.listebarkodkontrol(lines, code)
                                              : m_lookup.listestokkodkontrol(lines, code);
        Q_EMIT entryCleared();
        const bool sold = result.row >= 0;
        Q_EMIT noticed(result.remark, !sold || !result.remark.isEmpty());
        if (sold) {
            makeCurrent(m_active, result.row);
            hesapla(m_active);
        }
    } catch (const HostError &error) {
        m_lookup.calsesoff();
        Q_EMIT noticed(u"Aranamadı: %1 (%2)"_s.arg(code, error.text()), true);
        if (!error.connectionLost()) {
            Q_EMIT entryCleared();
            return;
        }
        Q_EMIT entryRefused();
        tellConnectionLost(m_program);
    }
}

void TillSession::toggleEntryMode()
{
    m_mode = m_mode == EntryMode::barcode ? EntryMode::stockCode : EntryMode::barcode;
    Q_EMIT entryModeChanged();
}

// ---- lists and lines

void TillSession::selectList(int number)
{
    if (!isList(number) || number == m_active)
        return;
    m_active = number;
    Q_EMIT activeListChanged(number);
}

void TillSession::selectRow(int number, int row)
{
    if (isList(number) && row != at(number).currentRow)
        makeCurrent(number, row);
}

void TillSession::moveSelection(int rows)
{
    if (!active().lines.isEmpty())
        makeCurrent(m_active, std::max(active().currentRow + rows, 0));
}

void TillSession::makeCurrent(int number, int row)
{
    at(number).currentRow = std::clamp(row, -1, at(number).lines.size() - 1);
    Q_EMIT currentRowChanged(number, at(number).currentRow);
}

void TillSession::sil()
{
    const int number = m_active;
    const int row = active().currentRow;
    if (row < 0 || !m_program.ask(u"Kaydi Silmek Istediginize Eminmisiniz...?"_s))
        return;
    at(number).lines.remove(row);
    makeCurrent(number, row);
    hesapla(number);
}

std::optional<TillSession::CurrentLine> TillSession::currentLine() const
{
    const ListState &state = at(m_active);
    if (state.currentRow < 0)
        return {};
    const SaleLine &line = state.lines.line(state.currentRow);
    return CurrentLine{line[SaleColumn::name], line[SaleColumn::quantity]};
}

QString TillSession::refusedQuantity(const QString &typed) const
{
    if (!currentLine())
        return u"Seçili satır yok."_s;
    if (!quantity::parse(typed))
        return u"Miktar 0’dan büyük, en çok %1 olmalı; ondalık ayırıcı virgüldür."_s.arg(
            amount::money(quantity::kMost));
    return {};
}

QString TillSession::miktargir(const QString &typed)
{
    QString refusal = refusedQuantity(typed);
    if (refusal.isEmpty())
        changeQuantity(*quantity::parse(typed));
    return refusal;
}

QString TillSession::miktarekle(const QString &typed)
{
    QString refusal = refusedQuantity(typed);
    if (!refusal.isEmpty())
        return refusal;
    const SaleLine &line = active().lines.line(active().currentRow);
    const double sum = pricing::valueOf(line, SaleColumn::quantity) + *quantity::parse(typed);
    if (sum > quantity::kMost)
        return u"Toplam miktar en çok %1 olabilir."_s.arg(amount::money(quantity::kMost));
    changeQuantity(sum);
    return {};
}

void TillSession::changeQuantity(double quantity)
{
    SaleLine line = active().lines.line(active().currentRow);
    pricing::recompute(line, quantity);
    active().lines.replace(active().currentRow, std::move(line));
    hesapla(m_active);
}

// ---- totals and cash

void TillSession::hesapla(int number)
{
    ListState &state = at(number);
    state.totals = pricing::hesapla(state.lines.figures());
    Q_EMIT totalsChanged(number);
    if (state.cashGiven) {
        state.change = pricing::change(state.cash, state.totals.grand);
        Q_EMIT cashChanged(number);
    }
}

void TillSession::setCash(int number, const QString &text)
{
    if (!isList(number))
        return;
    ListState &state = at(number);
    state.cash = text;
    state.cashGiven = true;
    state.change = pricing::change(text, state.totals.grand);
    Q_EMIT cashChanged(number);
}

bool TillSession::acceptCash(int number)
{
    ListState &state = at(number);
    if (state.cash.trimmed().isEmpty()) {
        resetCash(number);
        return true;
    }
    const auto given = quantity::parseCash(state.cash);
    if (!given) {
        m_lookup.calsesoff(); // perhaps a scan, and nobody looks
        Q_EMIT noticed(
            u"Alınan para okunamadı: \"%1\". En çok %2; ondalık ayırıcı virgüldür."_s.arg(
                state.cash, amount::money(quantity::kMostCash)),
            true);
        return false;
    }
    setCash(number, amount::money(*given));
    Q_EMIT noticed({}, false);
    return true;
}

void TillSession::resetCash(int number)
{
    ListState &state = at(number);
    if (state.cash != u"0,00")
        setCash(number, u"0,00"_s);
}

// ---- posting and receipt

void TillSession::setCashier(const Cashier &cashier)
{
    m_cashier = cashier;
    Q_EMIT cashierChanged();
}

std::unique_ptr<CashierChoice> TillSession::cashierChoice() const
{
    return std::make_unique<CashierChoice>(m_program, m_settings.cashierByCode());
}

Sale TillSession::capture(int number) const
{
    const ListState &state = at(number);
    const auto money = [](const QString &text) {
        return amount::money(amount::parse(text).value_or(0.0));
    };
    return {state.lines.lines(), state.totals,   money(state.cash),    state.change,
            m_cashier.code,      m_cashier.name, m_program.clock.now()};
}

void TillSession::post()
{
    // A second F2 may arrive while a message of the first one is on screen.
    if (m_posting)
        return;
    m_posting = true;
    m_program.handle([this] { postList(m_active); });
    m_posting = false;
    for (const QString &code : std::exchange(m_heldCodes, {}))
        enterCode(code);
}

void TillSession::postList(int number)
{
    if (!yaziciseciver(m_program, m_settings.yazici1)) {
        m_program.warn(u"Yazıcı Bulunamadı.Ayarlardan Yazıcı Kontrolu Yapıp Tekrar "
                       "Deneyiniz..."_s);
        return;
    }
    if (at(number).lines.isEmpty()) {
        Q_EMIT noticed(u"%1 listesi boş, kaydedilecek satış yok."_s.arg(caption(number)), true);
        return;
    }
    const Sale sale = capture(number);
    const PostingResult result = faturakaydet(m_program, m_settings, sale);
    if (result.posted()) {
        clearList(number);
        at(number).lastReceipt = nextReceipt(sale);
        // The change is handed out after the list was cleared.
        Q_EMIT noticed(u"Satış kaydedildi: %1"_s.arg(sale.totals.grand) + changeRemark(sale.change),
                       false);
        if (m_settings.printsReceipt())
            print(*at(number).lastReceipt);
    } else {
        Q_EMIT noticed(u"Satış kaydedilemedi; %1 listesi duruyor."_s.arg(caption(number)), true);
    }
    if (result.connectionLost)
        tellConnectionLost(m_program);
    if (result.failed > 0)
        tellFailures(result);
}

void TillSession::clearList(int number)
{
    at(number).lines.clear();
    makeCurrent(number, -1);
    hesapla(number);
    setCash(number, u"0,00"_s);
    at(number).cashGiven = false;
}

Receipt TillSession::nextReceipt(Sale sale)
{
    bool readable = false;
    const qlonglong last = m_layout.lastNumber.toLongLong(&readable);
    m_layout.lastNumber = QString::number(readable ? last + 1 : 1);
    receipt_store::saveNumber(m_program, m_layout.lastNumber);
    return {std::move(sale), m_layout.lastNumber};
}

void TillSession::print(const Receipt &receipt)
{
    try {
        printReceipt(m_program, m_settings.yazici1, drawReceipt(m_layout, receipt));
    } catch (const PrintError &error) {
        m_program.warn(u"Fiş yazdırılamadı: %1\nSatış kayıtlı; fişi F12 ile yeniden "
                       "yazdırabilirsiniz."_s.arg(error.text()));
    }
}

void TillSession::reprint()
{
    if (!active().lastReceipt) {
        Q_EMIT noticed(u"%1 listesinin yazdırılacak fişi yok."_s.arg(caption(m_active)), true);
        return;
    }
    m_program.handle([this] { print(*active().lastReceipt); });
}

void TillSession::tellFailures(const PostingResult &result)
{
    const QString text =
        result.posted()
            ? u"Satış kaydedildi, ancak %1 kayıt yazılamadı. Muhasebede tamamlanması gerekenler:"_s
            : u"Satış kaydedilemedi, hiçbir kayıt yazılamadı (%1 hata):"_s;
    constexpr qsizetype most = 12;
    QStringList documents = result.documents.mid(0, most);
    if (result.documents.size() > most)
        documents += u"… ve %1 belge daha"_s.arg(result.documents.size() - most);
    m_program.warn(text.arg(result.failed) + u'\n' + documents.join(u'\n'));
}

// ---- opening and closing

bool TillSession::mayClose()
{
    QString lists;
    for (int number = 0; number < kSaleLists; ++number)
        if (!at(number).lines.isEmpty())
            lists += u" (%1)"_s.arg(caption(number));
    return lists.isEmpty() ||
           m_program.ask(lists + u"  LİSTESİNDE ÜRÜN BULUNUYOR KAPATIRSANIZ TÜM ÜRÜNLER "
                                 "SİLİNECEKTİR. YİNEDE KAPATMAK İSTİYORMUSUNUZ...?"_s);
}

void TillSession::discard()
{
    setCashier({});
    for (int number = 0; number < kSaleLists; ++number)
        clearList(number);
}

QList<int> TillSession::columnWidths() const
{
    return olcuyukle(m_program);
}

void TillSession::saveColumnWidths(const QList<int> &widths)
{
    olcukaydet(m_program, widths);
}
