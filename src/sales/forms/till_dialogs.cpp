#include "sales/forms/till_dialogs.h"

#include "sales/forms/PER.h"
#include "sales/forms/miktr.h"
#include "sales/forms/scan_keeper.h"
#include "sales/till_session.h"

using namespace Qt::StringLiterals;

void askQuantity(TillSession &session, bool adding, QWidget *till)
{
    const auto line = session.currentLine();
    if (!line)
        return;
    miktr dialog(
        line->name, adding ? u"&Eklenecek miktar:"_s : u"&Yeni miktar:"_s,
        adding ? u"1"_s : line->quantity,
        [&session, adding](const QString &typed) {
            return adding ? session.miktarekle(typed) : session.miktargir(typed);
        },
        till);
    ScanKeeper::ownsKeys(dialog);
    dialog.exec();
}

void chooseCashier(TillSession &session, QWidget *till)
{
    const auto choice = session.cashierChoice();
    QObject::connect(choice.get(), &CashierChoice::chosen, &session, &TillSession::setCashier);
    PER dialog(*choice, till);
    ScanKeeper::ownsKeys(dialog);
    dialog.exec();
}
