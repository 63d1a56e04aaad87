#pragma once

#include <QLineEdit>

/// A box of the label form that stocks are searched by. Its text is selected whenever it has been
/// searched for or entered, so that the next scan or word replaces it.
class SearchBox final : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchBox(QWidget *parent = nullptr);

    /// Takes the focus.
    void enter();

Q_SIGNALS:
    /// Enter was pressed: stocks are to be searched by this text.
    void searched(const QString &text);
    /// Tab or the down arrow was pressed: the user goes on to the stocks.
    void left();
};
