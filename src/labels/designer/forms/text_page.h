#pragma once

#include <QStringList>
#include <QWidget>

#include <memory>

class DesignEditor;
class DesignerSession;
struct TextElement;

namespace Ui {
class TextPage;
}

/// What the selected texts show and how: in the panel and in the dialog of a text.
class TextPage final : public QWidget
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit TextPage(DesignerSession &session, QWidget *parent = nullptr);
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
    void addField(const QString &name, const QString &source);
    void offerColumns();

    template <typename Change>
    void change(const QString &what, int merge, Change each);

    DesignerSession &m_session;
    DesignEditor &m_editor;
    QStringList m_columns; ///< that the box offers
    std::unique_ptr<Ui::TextPage> m_ui;
};
