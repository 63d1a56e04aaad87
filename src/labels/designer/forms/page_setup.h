#pragma once

#include "labels/designer/design.h"
#include "labels/layout/label_sheets.h"

#include <QDialog>
#include <QMarginsF>

#include <memory>

class DesignerSession;
QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

namespace Ui {
class PageSetup;
}

/// Printer, paper, orientation and quality of a layout, and where its labels lie on the sheet.
class PageSetup final : public QDialog
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit PageSetup(DesignerSession &session, QWidget *parent = nullptr);
    ~PageSetup() override;

Q_SIGNALS:
    /// The printer of this layout is to be made to hit the paper.
    void calibrationWanted(const LabelLayout &layout);

private:
    struct TextBox
    {
        QLineEdit *box;
        QString LabelLayout::*value;
    };
    std::vector<TextBox> textBoxes() const;
    void fillPrinters();
    void fillPapers();
    void fillQualities();
    void fillSheets();
    void connectBoxes();
    void connectChoices();
    void showValues();
    void askPrinter();
    void showSheet();
    void turnPaper(const QString &orientation);
    void choosePaper(int index);
    void chooseSheet(int index);
    void measure();
    void take();

    DesignerSession &m_session;
    Design m_design; ///< with the page as the dialog has it
    QMarginsF m_unprintable;
    bool m_answered = false; ///< the printer
    std::vector<LabelSheet> m_sheets;
    std::unique_ptr<Ui::PageSetup> m_ui;
};
