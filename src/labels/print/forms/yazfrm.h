#pragma once

#include "labels/print/print_run.h"

#include <QDialog>

#include <functional>

namespace Ui {
class yazfrm;
}

/// What the dialog is opened for when not for printing: to open a layout, or to name one.
struct LayoutTask
{
    QString title;
    QString button;                                ///< caption of the button that takes the name
    bool newName = false;                          ///< the name may be that of no layout yet
    std::function<bool(const QString &name)> take; ///< true: the dialog may go
};

/// The print dialog: chooses a layout and prints a request with it. Its printer and whether
/// it is the default are settled here too.
class yazfrm final : public QDialog
{
    Q_OBJECT

public:
    /// `run` is kept by reference.
    yazfrm(PrintRun &run, const PrintRequest &request, QWidget *parent = nullptr);
    /// `preview`: whose values the labels show.
    yazfrm(PrintRun &run, const LayoutTask &task, const PrintRequest &preview,
           QWidget *parent = nullptr);
    ~yazfrm() override;

Q_SIGNALS:
    /// The chosen layout is to be changed in the designer.
    void designWanted(const QString &layout);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void build();
    void choose(const QString &name);
    void design();
    void take();
    void showPreview();
    void offerPlaces();
    void showPlaces();
    void showPrinter();
    void setPrinter();
    void print();

    PrintRun &m_run;
    PrintRequest m_request;
    LayoutTask m_task;      ///< without a taker: printing
    QStringList m_printers; ///< read once: a network of printers answers slowly
    QString m_chosen;       ///< layout file, empty until one is chosen
    LabelLayout m_layout;   ///< what that file says
    std::unique_ptr<Ui::yazfrm> m_ui;
};
