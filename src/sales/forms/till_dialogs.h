#pragma once

#include <QtGlobal>

#include <vector>

struct HeldKey;
struct PostingReport;
class TillSession;

QT_BEGIN_NAMESPACE
class QLineEdit;
class QWidget;
QT_END_NAMESPACE

/// Asks for the quantity of the current line, or for what is to be added to it. Does nothing when
/// no line is current.
void askQuantity(TillSession &session, bool adding, QWidget *till);

/// Asks who stands at the till.
void chooseCashier(TillSession &session, QWidget *till);

/// Finds an item by its name and brings it into the active list, or only tells its price.
void findItem(TillSession &session, QWidget *till);

/// Finds the account that the active list's sale goes to.
void findCustomer(TillSession &session, QWidget *till);

/// Shows what a posting left missing.
void showReport(TillSession &session, const PostingReport &report, QWidget *till);

/// Enters the keys that were kept while a box was open, behind a code that the lost server left in
/// the entry box. What cannot be entered is told.
void enterKept(TillSession &session, QLineEdit &entry, const std::vector<HeldKey> &keys);
