#pragma once

class QWidget;
class TillSession;

/// Asks for the quantity of the current line, or for what is to be added to it. Does nothing when
/// no line is current.
void askQuantity(TillSession &session, bool adding, QWidget *till);

/// Asks who stands at the till.
void chooseCashier(TillSession &session, QWidget *till);
