#pragma once

#include "tour/ledger_rows.h"

#include <QDate>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>

#include <functional>
#include <vector>

class Program;
class Rooms;

inline constexpr QSize kTourScreen(1366, 768);

/// Drives the program's real forms by keys, as a user would, and leaves a picture of each form and
/// everything that was printed in a folder. Says on standard output what it does and where each
/// file is. Then the program ends.
class Tour final : public QObject
{
    Q_OBJECT

public:
    /// `program`: what the rooms work on; `folder`: where pictures and copies of printed files go.
    Tour(Rooms &rooms, Program &program, const QString &folder);

    /// False when a form or control was not where a user would look for it.
    bool succeeded() const { return m_ended && m_failures == 0; }

private:
    using Action = std::function<void()>;

    /// `ready`: whether the step's turn has come; empty: as soon as the one before is over.
    void step(const QString &what, const Action &action, std::function<bool()> ready = {});
    /// A step in a window that opens when it will: a box of the till waits until nobody types.
    void stepIn(const QString &window, const QString &what, const Action &action);
    bool isThere(const QString &window);
    void stockList();
    void queueAndPrint();
    void documents();
    void printList(const QString &source);
    void numbers();
    void turnedText();

    void design();
    void designPage();
    void designPrinter();
    void designTexts();
    void designBars();
    void designPictures();
    void designLook();
    void designFiles();
    void printFromPlace();
    void designText(const QString &what, const QStringList &box, const QString &points);
    void designDialog(const QString &file, int key);
    void designKey(const QString &keys);
    void choose(const QString &windowName, const QString &name, const QString &item);
    void drag(QPointF from, QPointF to);

    void settings();
    void connection();

    void setup();
    void setupStep(const QString &what, const Action &action);
    void ownLedger();
    void otherTill();
    void makeOtherTill();

    void quickSale();
    void fillFirstList();
    void correctLines();
    void quantityWindow(const QString &quantity, const QString &file);
    void fillSecondList();
    void postBoth();
    void postIncompletely();
    void showTillBook();
    void guardDeleting(bool on);
    void givePermission();
    void atTheCounter();
    void find(const QString &what, const QString &text, int row, const QString &file);
    void scan(const QString &code);
    void saleKey(int key);
    void writeLedger();

    void tick();
    void giveUp();
    void fail(const QString &what);
    QWidget *window(const QString &name);
    QWidget *control(const QString &windowName, const QString &name);
    void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &windowName, const QString &name, const QString &text);
    void click(const QString &windowName, const QString &name);
    void trigger(const QString &windowName, const QString &action);
    void confirm();
    void setDate(const QString &windowName, const QString &name, QDate date);
    int rows(const QString &list);
    void picture(const QString &windowName, const QString &file);
    void collectPrints();
    void say(const QString &text);

    struct Step
    {
        QString what;
        Action action;
        std::function<bool()> ready;
    };

    Rooms &m_rooms;
    Program &m_program;
    QString m_folder;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_waited = 0;                  ///< ticks for the window of the next step
    int m_depth = 0;                   ///< steps that wait for a dialog they opened
    QWidget *m_dialogBefore = nullptr; ///< the dialog in which the latest step began, only compared
    int m_failures = 0;
    bool m_ended = false;
    QWidget m_nowhere; ///< stands for a window that is not there
    QStringList m_collected;
    LedgerRows m_ledger; ///< as it stood before the sales
    QTemporaryDir m_otherTill;
};
