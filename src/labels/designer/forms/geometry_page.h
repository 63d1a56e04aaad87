#pragma once

#include <QWidget>

#include <memory>

class DesignEditor;

namespace Ui {
class GeometryPage;
}

/// Place and size of the selected elements in exact numbers.
class GeometryPage final : public QWidget
{
    Q_OBJECT

public:
    /// `editor` is kept by reference.
    explicit GeometryPage(DesignEditor &editor, QWidget *parent = nullptr);
    ~GeometryPage() override;

    void showSelection();

private:
    void connectBoxes();

    DesignEditor &m_editor;
    std::unique_ptr<Ui::GeometryPage> m_ui;
};
