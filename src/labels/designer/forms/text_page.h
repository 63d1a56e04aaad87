#pragma once

#include <QWidget>

#include <memory>

class DesignEditor;
struct TextElement;

namespace Ui {
class TextPage;
}

/// What the selected texts show and how: in the panel and in the dialog of a text.
class TextPage final : public QWidget
{
    Q_OBJECT

public:
    /// `editor` is kept by reference.
    explicit TextPage(DesignEditor &editor, QWidget *parent = nullptr);
    ~TextPage() override;

    void showSelection();

    /// Takes the keyboard where a new text begins.
    void enter();

private:
    void connectContent();
    void connectLook();
    void connectChoices();
    void showChoices(const QList<const TextElement *> &texts);
    void bind(int index);

    template <typename Change>
    void change(const QString &what, int merge, Change each);

    DesignEditor &m_editor;
    std::unique_ptr<Ui::TextPage> m_ui;
};
