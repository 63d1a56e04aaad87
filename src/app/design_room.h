#pragma once

#include "common/program.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/sample_search.h"
#include "labels/print/print_run.h"

#include <QObject>
#include <QPointer>

class DesignerSession;
class Form1;
class OuterLoop;
class yazfrm;

/// The label designer and what it needs of other rooms: layouts to choose from, stocks to show.
class DesignRoom final : public QObject
{
    Q_OBJECT

public:
    /// All four are kept by reference.
    DesignRoom(Program &program, PrintRun &print, LabelDesk &desk, OuterLoop &outer);
    ~DesignRoom() override;

    /// Opens the designer, with a layout of the folder `ayar` when one is named. `onTop`: over a
    /// till that is kept over other windows.
    void show(const QString &layout = {}, bool onTop = false);

    /// Offers unsaved work of a program that ended unexpectedly.
    void offerRecovery();

    /// False while unsaved work keeps the designer open.
    bool close();

private:
    Form1 &form();
    void chooseToOpen();
    void chooseToSave();
    void showStocks(const std::vector<LabelRow> &rows);
    void calibrate(const LabelLayout &layout);

    Program &m_program;
    PrintRun &m_print;
    LabelDesk &m_desk;
    OuterLoop &m_outer;
    SampleSearch m_search;
    QPointer<Form1> m_form;
    QPointer<DesignerSession> m_session;
    QPointer<yazfrm> m_dialog;
};
