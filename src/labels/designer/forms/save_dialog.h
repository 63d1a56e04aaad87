#pragma once

#include <QDialog>

#include <memory>

class DesignerSession;

namespace Ui {
class SaveDialog;
}

/// The small dialog of "Kaydet": the layout's name, and whether it prints without a question.
class SaveDialog final : public QDialog
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit SaveDialog(DesignerSession &session, QWidget *parent = nullptr);
    ~SaveDialog() override;

    void reject() override;

private:
    void save();

    DesignerSession &m_session;
    std::unique_ptr<Ui::SaveDialog> m_ui;
};
