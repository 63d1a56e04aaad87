#pragma once

#include <QWidget>

#include <memory>

class DesignEditor;
class DesignerSession;

namespace Ui {
class BarcodePage;
}

/// The sample and the look of the selected barcodes.
class BarcodePage final : public QWidget
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit BarcodePage(DesignerSession &session, QWidget *parent = nullptr);
    ~BarcodePage() override;

    void showSelection();
    void enter();

private:
    DesignerSession &m_session;
    DesignEditor &m_editor;
    std::unique_ptr<Ui::BarcodePage> m_ui;
};
