#include "sales/journal/till_memory.h"

#include "common/program.h"
#include "sales/host_fault.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using State = JournaledSale::State;

constexpr int kSettle = 500;      ///< milliseconds; a power cut may take a second
constexpr int kPrunePause = 1000; ///< milliseconds
constexpr qint64 kTryAgain = 300; ///< seconds: a locked file keeps the cashier waiting for two

} // namespace

TillMemory::TillMemory(Program &program, TillSession &till, QObject *parent)
    : QObject(parent), m_program(program), m_till(till),
      m_file(*program.journal, program.clock, program.path(u"kasa.dbs"), program.ledger),
      m_lists(m_file), m_sales(m_file), m_incomplete(program, m_sales),
      m_receipts(program, m_file, m_sales, till), m_dayEnd(program, m_file, till),
      m_keeper(m_file, m_sales, m_lists)
{
    m_settle.setInterval(kSettle);
    m_settle.setSingleShot(true);
    connect(&m_settle, &QTimer::timeout, this, [this] { m_file.sync(); });
    m_prune.setInterval(kPrunePause);
    connect(&m_prune, &QTimer::timeout, this, &TillMemory::prune);
    connect(&m_incomplete, &IncompleteSales::changed, this, &TillMemory::markChanged);
    connect(&m_incomplete, &IncompleteSales::foundPosted, this, &TillMemory::conclude);
    connect(&m_till, &TillSession::settingsLoaded, this, &TillMemory::open,
            Qt::SingleShotConnection);
}

TillMemory::~TillMemory()
{
    m_file.healthChanged = nullptr;
    tryAgain(); // else the lists of an hour ago would come back
    if (m_watching)
        m_till.setWitness(nullptr);
}

/// Once, when the till comes up: whoever never opens it leaves the lists where they are.
void TillMemory::open()
{
    m_tried = m_program.clock.now();
    m_file.open();
    if (m_file.isOpen())
        restore();
    watch();
    m_file.healthChanged = [this] { health(); };
    m_prune.start();
    QTimer::singleShot(0, this, &TillMemory::greet); // the form shows then
}

/// Years of sales go little by little, while nobody sells.
void TillMemory::prune()
{
    if (!m_till.work().busy() && !m_file.prune())
        m_prune.stop();
}

// ---- what the end of the program left behind

void TillMemory::restore()
{
    m_restored = true;
    for (const JournaledSale &sale : m_sales.openSales(SaleJournal::Ledgers::all))
        if (sale.state == State::underWay)
            judgeCutOff(sale);
    // All before any: a watched list is written down again as it comes back.
    const std::array<Sale, kSaleLists> lists = {m_lists.left(0), m_lists.left(1), m_lists.left(2)};
    QStringList back;
    for (int list = 0; list < kSaleLists; ++list) {
        const Sale &left = lists.at(static_cast<std::size_t>(list));
        const int place = left.lines.empty() ? -1 : freeList(list);
        if (place < 0)
            continue;
        const bool today = left.moment.date() == m_file.today();
        back += u"%1 (%2 satır, %3)"_s.arg(
            TillSession::caption(place), QString::number(left.lines.size()),
            left.moment.toString(today ? u"HH:mm"_s : u"dd.MM. HH:mm"_s));
        m_till.restore(place, left);
        Sale &known = m_given.at(static_cast<std::size_t>(place));
        known = given(place);
        Sale &cameBack = m_back.at(static_cast<std::size_t>(place));
        cameBack = known;
        cameBack.lines = m_till.list(place).lines();
        cameBack.totals = m_till.totals(place);
        cameBack.moment = left.moment;
    }
    const Cashier cashier = m_watching ? m_till.cashier() : m_lists.lastCashier();
    m_lists.setCashier(cashier);
    if (!cashier.code.isEmpty() || !cashier.name.isEmpty())
        m_till.setCashier(cashier);
    if (!back.isEmpty())
        m_greeting += u"Açık kalan listeler geri geldi: "_s + back.join(u", "_s);
    if (!m_file.news().isEmpty())
        m_greeting += m_file.news();
}

/// Where a list comes back to: its own place, or another when a journal that was locked at first
/// finds goods there; -1: nowhere.
int TillMemory::freeList(int list)
{
    for (const int place : {list, 0, 1, 2})
        if (m_till.list(place).isEmpty())
            return place;
    return -1;
}

/// A posting that the end of the program cut off. When the ledger holds some of it the list is
/// sold; when nothing is known to have been written the list stands, and the ledger is looked at
/// before it is posted again.
void TillMemory::judgeCutOff(const JournaledSale &sale)
{
    const bool drawn = std::any_of(ledger::kDocuments.begin(), ledger::kDocuments.end(),
                                   [&sale](ledger::Document document) {
                                       return !sale.inLedger().drawn(document).number.isEmpty();
                                   });
    if (!sale.reachedLedger(false)) {
        if (drawn)
            m_sales.end(sale.number, State::uncertain);
        else
            m_sales.forget(sale.number); // no statement that writes had left
        return;
    }
    const bool whole = IncompleteSales::missing(sale).isEmpty();
    m_sales.end(sale.number, whole ? State::whole : State::incomplete, m_lists.clearing(sale.list));
    m_sales.setReceiptNumber(sale.number, m_till.drawReceiptNumber());
    m_greeting += whole ? u"%1 satışı (%2) kaydedilmişti; fişi basılmamış olabilir."_s.arg(
                              TillSession::caption(sale.list), sale.sale.totals.grand)
                        : u"%1 satışı (%2) kaydedilirken program kapandı, kayıtları eksik."_s.arg(
                              TillSession::caption(sale.list), sale.sale.totals.grand);
}

void TillMemory::greet()
{
    Q_EMIT markChanged();
    if (!m_greeting.isEmpty())
        Q_EMIT m_till.noticed(m_greeting.join(u"  "_s), Notice::warning);
    m_greeting.clear();
    if (!m_file.isOpen())
        health();
}

// ---- watching

void TillMemory::watch()
{
    m_watching = true;
    m_till.setWitness(this);
    for (int list = 0; list < kSaleLists; ++list)
        watchList(list);
    // While a server is waited for no timer is served.
    connect(&m_till.work(), &TillWork::waiting, this, [this] { m_file.sync(); });
    connect(&m_till, &TillSession::cashChanged, this, &TillMemory::cashChanged);
    connect(&m_till, &TillSession::customerChanged, this, &TillMemory::customersChanged);
    connect(&m_till, &TillSession::cashierChanged, this, [this] {
        if (m_parked)
            return;
        m_lists.setCashier(m_till.cashier());
        settle();
    });
}

void TillMemory::watchList(int list)
{
    SaleList &lines = m_till.list(list);
    const auto setRows = [this, list, &lines](int first, int last) {
        for (int row = first; row <= last; ++row)
            m_lists.lineSet(list, row, lines.line(row));
        settle();
    };
    connect(&lines, &SaleList::rowsInserted, this,
            [setRows](const QModelIndex &, int first, int last) { setRows(first, last); });
    connect(&lines, &SaleList::dataChanged, this,
            [setRows](const QModelIndex &from, const QModelIndex &to) {
                setRows(from.row(), to.row());
            });
    connect(&lines, &SaleList::rowsAboutToBeRemoved, this,
            [this, list, &lines](const QModelIndex &, int first, int last) {
                for (int row = last; row >= first; --row)
                    m_lists.lineRemoved(list, row, lines.line(row));
                settle();
            });
    connect(&lines, &SaleList::modelAboutToBeReset, this, [this, list] { listReset(list); });
}

/// Lines that go without a sale were dropped by somebody, as a deleted one was.
void TillMemory::listReset(int list)
{
    const std::vector<SaleLine> &lines = m_till.list(list).lines();
    const bool sold = std::exchange(m_sold, -1) == list;
    if (!lines.empty() && !m_parked)
        m_lists.cleared(list, sold ? std::vector<SaleLine>() : lines);
    m_back.at(static_cast<std::size_t>(list)).lines.clear();
    settle();
}

Sale TillMemory::given(int list) const
{
    Sale given;
    given.cash = m_till.cash(list);
    given.payment = m_till.payment(list);
    given.customer = m_till.chosenCustomer(list);
    return given;
}

void TillMemory::cashChanged(int list)
{
    Sale &known = m_given.at(static_cast<std::size_t>(list));
    const Sale now = given(list);
    if (m_parked || (known.cash == now.cash && known.payment == now.payment))
        return;
    known.cash = now.cash;
    known.payment = now.payment;
    m_lists.cashSet(list, now.cash, now.payment);
    settle();
}

void TillMemory::customersChanged()
{
    for (int list = 0; list < kSaleLists; ++list) {
        Customer &known = m_given.at(static_cast<std::size_t>(list)).customer;
        if (m_parked || known == m_till.chosenCustomer(list))
            continue;
        known = m_till.chosenCustomer(list);
        m_lists.customerSet(list, known);
        settle();
    }
}

void TillMemory::settle()
{
    if (!m_settle.isActive())
        m_settle.start();
}

bool TillMemory::park()
{
    if (!m_watching || !m_file.isOpen())
        return false;
    m_parked = true;
    m_file.sync();
    return true;
}

// ---- faults of the file

QString TillMemory::fault() const
{
    return m_watching && !m_file.isOpen() ? m_file.fault() : QString();
}

QString TillMemory::mark() const
{
    if (m_watching && !m_file.isOpen())
        return u"GÜNLÜK TUTULAMIYOR"_s;
    const int count = m_incomplete.count();
    return count > 0 ? u"%1 EKSİK SATIŞ"_s.arg(count) : QString();
}

void TillMemory::health()
{
    Q_EMIT markChanged();
    if (!m_file.isOpen())
        Q_EMIT m_till.noticed(
            u"Kasa günlüğü (kasa.dbs) tutulamıyor: %1 Satış sürer; günlük düzelmeden program "
            "kapanırsa bu sıradaki satışlar ve liste değişiklikleri hatırlanmaz."_s.arg(
                m_file.fault()),
            Notice::fault);
}

/// A disk that was full or a file that was locked may be well again.
void TillMemory::reopen()
{
    const QDateTime now = m_program.clock.now();
    if (m_file.isOpen() || m_tried.secsTo(now) < kTryAgain)
        return;
    tryAgain();
}

void TillMemory::tryAgain()
{
    if (m_file.isOpen() || !m_watching)
        return;
    m_tried = m_program.clock.now();
    m_file.open();
    if (!m_file.isOpen())
        return;
    if (!m_restored)
        restore();
    m_keeper.bringBack();
    snapshot();
    QTimer::singleShot(0, this, &TillMemory::greet);
}

void TillMemory::snapshot()
{
    for (int list = 0; list < kSaleLists; ++list) {
        m_lists.cleared(list, {});
        if (list == m_sold) // its lines go in a moment
            continue;
        for (int row = 0; row < m_till.list(list).size(); ++row)
            m_lists.lineSet(list, row, m_till.list(list).line(row));
        m_lists.cashSet(list, m_till.cash(list), m_till.payment(list));
        m_lists.customerSet(list, m_till.chosenCustomer(list));
    }
    m_lists.setCashier(m_till.cashier());
}

// ---- postings

/// What an earlier posting left open is dealt with first when the next one would take its numbers.
bool TillMemory::mayBegin(int list)
{
    reopen();
    m_list = list;
    for (const JournaledSale &sale : m_sales.unnumbered()) {
        if (!IncompleteSales::holdsBackNumbers(sale))
            continue;
        const bool full = !m_till.list(list).isEmpty();
        if (!mayPost(m_incomplete.complete(sale)))
            return false;
        if (full && m_till.list(list).isEmpty()) // it was the sale that is to be posted
            return false;
    }
    return !wasSoldBefore(list);
}

bool TillMemory::mayPost(const IncompleteSales::Outcome &outcome)
{
    using End = IncompleteSales::Outcome::End;
    if (!outcome.doubled.isEmpty())
        m_till.work().later([this, doubled = outcome.doubled.join(u'\n')] {
            m_program.warn(
                u"Önceki satışın belge numarasını başka bir kasa da vermiş:\n\n%1\n\n"
                "Muhasebede belgelerden birine yeni numara verin. Satış o zamana dek F1, "
                "Eksik satışlar sayfasında durur."_s.arg(doubled));
        });
    if (outcome.end == End::noHost)
        tellConnectionLost(m_program);
    if (outcome.end != End::noHost && outcome.end != End::postponed)
        return true;
    Q_EMIT m_till.noticed(u"Satış kaydedilmedi; önce eksik kalan satış tamamlanmalı. "_s +
                              outcome.text,
                          Notice::fault);
    return false;
}

/// A list that came back may have been sold while the journal could not be written, or between two
/// words of it: the ledger knows. True when it is not to be posted now.
bool TillMemory::wasSoldBefore(int list)
{
    const Sale left = m_back.at(static_cast<std::size_t>(list));
    if (left.lines.empty())
        return false;
    std::optional<sold_search::Found> found;
    try {
        found =
            sold_search::find(m_program, m_till.settings(), left,
                              [this](const QString &invoice) { return m_sales.knows(invoice); });
    } catch (const HostError &error) {
        return error.connectionLost() && !mayPost({IncompleteSales::Outcome::End::noHost, {}});
    }
    if (!found)
        return false;
    const Message question{
        u"%1 listesi program kapanmadan önce satılmış olabilir: kasa günlüğü o sırada "
        "yazılamıyordu.\n\nMuhasebede aynı mallarla bu kasanın bilmediği bir satış var:\n%2, "
        "fatura "
        "%3, toplam %4\n\nListe o satış mı?\nEVET: liste boşalır, yeniden kaydedilmez.  HAYIR: "
        "yeni "
        "satış olarak kaydedilir.  Esc: sonra karar verilir."_s.arg(
            TillSession::caption(list), found->sale.moment.toString(u"dd.MM.yyyy HH:mm"_s),
            found->inLedger.header().invoiceNumber, found->sale.totals.grand),
        u"ONAY"_s, 3, 2};
    const Answer answer = m_program.prompt.show(question);
    if (answer == Answer::yes)
        enter(list, *found);
    else if (answer == Answer::no)
        return false;
    else
        Q_EMIT m_till.noticed(
            u"Satış kaydedilmedi; %1 listesi duruyor."_s.arg(TillSession::caption(list)),
            Notice::fault);
    return true;
}

/// Writes down a sale that the ledger alone knew, and completes what it may lack.
void TillMemory::enter(int list, const sold_search::Found &found)
{
    const qint64 number = m_sales.begin(list, found.sale, found.inLedger);
    m_sales.drawn(number, found.inLedger);
    m_sales.end(number, State::uncertain);
    if (const auto sale = m_sales.sale(number)) {
        mayPost(m_incomplete.complete(*sale)); // clears the list
    } else {                                   // a journal that failed once more
        m_sold = list;
        m_till.clearSold(list, found.sale);
    }
}

/// A list that stood because nobody knew better was sold. It goes when it is still what was sold.
void TillMemory::conclude(const JournaledSale &sale)
{
    m_sales.setReceiptNumber(sale.number, m_till.drawReceiptNumber());
    const QString name = TillSession::caption(sale.list);
    if (m_till.list(sale.list).lines() == sale.sale.lines) {
        m_sold = sale.list;
        m_till.clearSold(sale.list, sale.sale);
        Q_EMIT m_till.noticed(u"%1 satışı (%2) zaten kaydedilmişti, tamamlandı; fişi F1 ile "
                              "basabilirsiniz."_s.arg(name, sale.sale.totals.grand),
                              Notice::warning);
    } else {
        m_program.warn(
            u"%1 listesinin önceki hâli (toplam %2) muhasebeye yazılmıştı ve "
            u"tamamlandı.\n\nListede "
            "o satışın ürünleri duruyor olabilir: satılmış olanları silip kalanı kaydedin."_s.arg(
                name, sale.sale.totals.grand));
    }
}

void TillMemory::begun(const Sale &sale, const ledger::LedgerSale &inLedger)
{
    m_keeper.begin(m_list, sale, inLedger);
}

void TillMemory::drawn(const ledger::LedgerSale &sale)
{
    m_keeper.drawn(sale);
}

void TillMemory::sending(const ledger::Record &record, const QString &statement,
                         std::optional<double> from)
{
    m_keeper.step([=](PostingLog &log) { log.sending(record, statement, from); });
}

void TillMemory::answered(const ledger::Record &record, Sent sent, const QString &words)
{
    m_keeper.step([=](PostingLog &log) { log.answered(record, sent, words); });
}

void TillMemory::ended(const PostingResult &result)
{
    if (result.posted())
        m_sold = m_list;
    State state = State::underWay; // nothing was written
    if (result.posted())
        state = result.missing() == 0 ? State::whole : State::incomplete;
    else if (result.uncertain > 0)
        state = State::uncertain;
    const bool failed = m_keeper.failed();
    m_keeper.end(state);
    if (failed) // in the middle: what became of the sale should get into it
        tryAgain();
    settle();
    if (result.missing() > 0)
        Q_EMIT markChanged();
}

void TillMemory::numbered(const QString &receipt)
{
    m_keeper.numbered(receipt);
}
