#include "sales/forms/till_dialogs.h"

#include "sales/forms/PER.h"
#include "sales/forms/finder_form.h"
#include "sales/forms/miktr.h"
#include "sales/forms/posting_report_box.h"
#include "sales/forms/scan_keeper.h"
#include "sales/till_session.h"

#include <QKeySequence>
#include <QLineEdit>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Keys that may be pressed late. Posting and deleting want to be pressed by somebody who has read
/// the box.
bool mayComeLate(const HeldKey &held)
{
    switch (held.key) {
    case Qt::Key_Backspace:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_F3:
    case Qt::Key_F4:
    case Qt::Key_F5:
    case Qt::Key_F6:
    case Qt::Key_F7:
    case Qt::Key_F8:
    case Qt::Key_F9:
    case Qt::Key_F10:
    case Qt::Key_F11:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return true;
    default:
        return isEnter(held.key) || !held.text.isEmpty();
    }
}

/// The keys as the cashier knows them: codes whole, other keys by name.
QStringList named(const std::vector<HeldKey> &keys)
{
    QStringList names;
    bool open = false; // a code is being spelled
    for (const HeldKey &held : keys) {
        const bool letter = held.text.size() == 1 && held.text.at(0).isPrint();
        if (letter && open)
            names.last() += held.text;
        else if (!isEnter(held.key))
            names += letter ? held.text : QKeySequence(held.key).toString();
        open = letter;
    }
    return names;
}

/// Opens a dialog when the keys behind the one that asked for it have come.
void openSoon(TillSession &session, QWidget *till, std::function<void()> open)
{
    session.work().dialog([till = QPointer(till), open = std::move(open)] {
        if (till)
            open();
    });
}

} // namespace

void askQuantity(TillSession &session, bool adding, QWidget *till)
{
    openSoon(session, till, [&session, adding, till] {
        const SaleLine *line = session.currentLine();
        if (!line)
            return;
        miktr dialog((*line)[SaleColumn::name],
                     adding ? u"&Eklenecek miktar:"_s : u"&Yeni miktar:"_s,
                     adding ? u"1"_s : (*line)[SaleColumn::quantity],
                     [&session, adding](const QString &typed) {
                         return adding ? session.miktarekle(typed) : session.miktargir(typed);
                     },
                     till);
        dialog.exec();
    });
}

void chooseCashier(TillSession &session, QWidget *till)
{
    const std::shared_ptr<CashierChoice> choice = session.cashierChoice();
    openSoon(session, till, [&session, choice, till] {
        QObject::connect(choice.get(), &CashierChoice::chosen, &session, &TillSession::setCashier);
        PER dialog(*choice, till);
        dialog.exec();
    });
}

void findItem(TillSession &session, QWidget *till)
{
    openSoon(session, till, [&session, till] {
        const auto finder = session.itemFinder();
        FinderForm dialog(
            *finder,
            {u"Ürün Bul ve Fiyat Gör"_s, u"Adı, kodu ya da &barkodu"_s, u"&Satışa ekle (Enter)"_s},
            [&](const QString &text) { session.search(*finder, text); }, till);
        dialog.exec();
        if (dialog.taken() >= 0)
            session.enterStock(finder->code(dialog.taken()));
    });
}

void findCustomer(TillSession &session, QWidget *till)
{
    openSoon(session, till, [&session, till] {
        const auto finder = session.customerFinder();
        FinderForm dialog(
            *finder, {u"Satışın Müşterisi"_s, u"Unvanı ya da &kodu"_s, u"&Satışa yaz (Enter)"_s},
            [&](const QString &text) { session.search(*finder, text); }, till);
        dialog.exec();
        if (dialog.taken() >= 0)
            session.setCustomer({finder->code(dialog.taken()), finder->name(dialog.taken())});
    });
}

void showReport(TillSession &session, const PostingReport &report, QWidget *till)
{
    PostingReportBox(session, report, till).exec();
}

void enterKept(TillSession &session, QLineEdit &entry, const std::vector<HeldKey> &keys)
{
    const auto refused = [&] {
        return !entry.text().isEmpty() && entry.text() == session.refusedCode();
    };
    if (refused())
        session.enterCode(QString(session.refusedCode()));
    std::vector<HeldKey> left;
    bool lost = refused();
    for (const HeldKey &held : keys) {
        if (lost || !mayComeLate(held))
            left.push_back(held);
        else
            held.press(*entry.window());
        lost |= refused();
    }
    QStringList names = named(left);
    if (lost)
        names.prepend(session.refusedCode());
    if (!names.isEmpty())
        session.tellNotEntered(names);
}
