#pragma once

#include <QWidget>

#include <memory>

class DesignEditor;

namespace Ui {
class BarcodePage;
}

/// The sample and the look of the selected barcodes.
class BarcodePage final : public QWidget
{
    Q_OBJECT

public:
    /// `editor` is kept by reference.
    explicit BarcodePage(DesignEditor &editor, QWidget *parent = nullptr);
    ~BarcodePage() override;

    void showSelection();
    void enter();

private:
    DesignEditor &m_editor;
    std::unique_ptr<Ui::BarcodePage> m_ui;
};
