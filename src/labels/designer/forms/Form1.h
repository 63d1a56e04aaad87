#pragma once

#include "labels/designer/designer_commands.h"
#include "labels/layout/label_layout.h"

#include <QMainWindow>

class DesignCanvas;
class DesignerActions;
class DesignerSession;
class PropertyPanel;
class SampleBar;
QT_BEGIN_NAMESPACE
class QDialog;
class QLabel;
QT_END_NAMESPACE

/// The label designer: canvas with rulers, tools at its left, the values of what is selected at its
/// right, the stock whose values it shows above.
class Form1 final : public QMainWindow
{
    Q_OBJECT

public:
    /// `session` must outlive the form.
    explicit Form1(DesignerSession &session, QWidget *parent = nullptr);
    ~Form1() override;

Q_SIGNALS:
    /// The open dialog, the save-as dialog are wanted.
    void openWanted();
    void saveAsWanted();
    /// A stock is searched, the print queue is to be stepped through.
    void stockWanted(const QString &text);
    void queueWanted();
    /// A printer is to be made to hit the paper.
    void calibrationWanted(const LabelLayout &layout);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildPage();
    void buildSamples();
    void buildStatus();
    void connectSession();
    void run(Command command);
    bool runWindow(Command command);
    void showState();
    void showTitle();
    void showRow();
    void showNotices();
    void showProperties(bool fresh);
    void paste();
    void openModal(QDialog *dialog);
    void setUpPage();

    DesignerSession &m_session;
    DesignerActions *m_actions = nullptr;
    DesignCanvas *m_canvas = nullptr;
    PropertyPanel *m_panel = nullptr;
    SampleBar *m_samples = nullptr;
    QLabel *m_place = nullptr;
    QLabel *m_zoom = nullptr;
    bool m_leaving = false;
};
