#pragma once

#include "common/prompt.h"

#include <QDialog>
#include <QPointer>

#include <memory>

namespace Ui {
class mesaj;
}

/// The program's message box.
class mesaj final : public QDialog
{
    Q_OBJECT

public:
    explicit mesaj(const Message &message, QWidget *parent = nullptr);
    ~mesaj() override;

    /// Shows the box and waits for the answer.
    Answer ask();

private:
    void finish(Answer answer);
    void makeRoomForText();

    std::unique_ptr<Ui::mesaj> m_ui;
    Answer m_answer = Answer::closed; ///< stays so when no button closed the box
};

/// Asks through windows: the program's message box and the system's plain box.
class WindowPrompt final : public Prompt
{
public:
    void warn(const QString &text, bool critical) override;
    bool confirm(const QString &text) override;

private:
    Answer open(const Message &message) override;
    QWidget *asker();

    QPointer<QWidget> m_asker; ///< over which the last box stood
};
