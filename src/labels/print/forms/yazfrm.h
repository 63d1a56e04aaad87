#pragma once

#include "labels/print/print_run.h"

#include <QDialog>

namespace Ui {
class yazfrm;
}

/// The print dialog: chooses a layout and prints a request with it. Its printer and whether
/// it is the default are settled here too.
class yazfrm final : public QDialog
{
    Q_OBJECT

public:
    /// `run` is kept by reference.
    yazfrm(PrintRun &run, const PrintRequest &request, QWidget *parent = nullptr);
    ~yazfrm() override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void choose(const QString &name);
    void showPreview();
    void offerPlaces();
    void showPlaces();
    void showPrinter();
    void setPrinter();
    void print();

    PrintRun &m_run;
    PrintRequest m_request;
    QStringList m_printers; ///< read once: a network of printers answers slowly
    QString m_chosen;       ///< layout file, empty until one is chosen
    LabelLayout m_layout;   ///< what that file says
    std::unique_ptr<Ui::yazfrm> m_ui;
};
