#pragma once

#include <QDialog>

class DesignEditor;
class SymbolTable;
QT_BEGIN_NAMESPACE
class QFontComboBox;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

/// Picks a character from the table of a symbol font for the one selected text.
class SymbolPicker final : public QDialog
{
    Q_OBJECT

public:
    /// `fresh`: as in ElementDialog. `editor` is kept by reference.
    SymbolPicker(DesignEditor &editor, bool fresh, QWidget *parent = nullptr);

    void done(int result) override;

private:
    void chooseFont(const QString &family);
    void choose(QChar symbol);

    DesignEditor &m_editor;
    QFontComboBox *m_font;
    SymbolTable *m_table;
    QLabel *m_hint;
    QPushButton *m_take;
};
