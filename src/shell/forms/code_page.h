#pragma once

#include <QWidget>

class CodeChoices;
QT_BEGIN_NAMESPACE
class QLineEdit;
class QTreeView;
QT_END_NAMESPACE

/// A list of the ledger to choose from, with a box that searches it. The arrows move in the list
/// while the box has the focus.
class CodePage final : public QWidget
{
    Q_OBJECT

public:
    explicit CodePage(QWidget *parent = nullptr);

    /// Kept by reference.
    void setChoices(CodeChoices &choices);

    /// Begins with the whole list and this code.
    void begin(const QString &code);

Q_SIGNALS:
    void searched(const QString &text);
    void chosen(int row); ///< −1: none

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search(const QString &text);
    void makeCurrent(int row);

    QLineEdit *m_box;
    QTreeView *m_list;
    CodeChoices *m_choices = nullptr;
    bool m_beginning = false;
};
