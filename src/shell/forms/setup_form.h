#pragma once

#include "shell/setup_step.h"

#include <QDialog>

#include <memory>

class SetupSession;

namespace Ui {
class SetupForm;
}

/// The set-up: one question at a time, back and forth.
class SetupForm final : public QDialog
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit SetupForm(SetupSession &session, QWidget *parent = nullptr);
    ~SetupForm() override;

    /// While a server is asked.
    bool isBusy() const;

protected:
    void done(int result) override;
    void showEvent(QShowEvent *event) override;

private:
    void connectAnswers();
    void connectSession();
    void showStep();
    void showAnswers();
    void showLedger();
    void showPrinters();
    void focusPage();
    void browse();
    void takeServer();
    void takeDatabases();
    void takePrinter();
    void takePassword();
    void goOn();
    void notice(const QString &text, bool fault);
    QWidget *pageOf(SetupStep step) const;

    std::unique_ptr<Ui::SetupForm> m_ui;
    SetupSession &m_session;
    bool m_showing = false; ///< controls are being filled, not answered
};
