#pragma once

#include "common/program.h"
#include "labels/desk/label_desk.h"
#include "labels/desk/sample_search.h"
#include "labels/print/print_run.h"

#include <QObject>
#include <QPointer>

class DesignerSession;
class Form1;
class Forms;
class yazfrm;

/// The label designer and what it needs of other rooms: layouts to choose from, stocks to show.
class DesignRoom final : public QObject
{
    Q_OBJECT

public:
    /// All four are kept by reference.
    DesignRoom(Program &program, PrintRun &print, LabelDesk &desk, const Forms &forms);
    ~DesignRoom() override;

    /// Opens the designer, with a layout of the folder `ayar` when one is named.
    void show(const QString &layout = {});

    /// Offers unsaved work of a program that ended unexpectedly.
    void offerRecovery();

    /// False while unsaved work keeps the designer open.
    bool close();

private:
    Form1 *makeForm();
    void chooseToOpen();
    void chooseToSave();
    void showStocks(const std::vector<LabelRow> &rows);
    void calibrate(const LabelLayout &layout);

    Program &m_program;
    PrintRun &m_print;
    LabelDesk &m_desk;
    const Forms &m_forms;
    SampleSearch m_search;
    QPointer<Form1> m_form;
    QPointer<DesignerSession> m_session;
    QPointer<yazfrm> m_dialog;
};
