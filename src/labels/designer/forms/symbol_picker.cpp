#include "labels/designer/forms/symbol_picker.h"

#include "labels/designer/design_editor.h"
#include "labels/designer/forms/symbol_table.h"
#include "labels/designer/symbol_fonts.h"

#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SymbolPicker::SymbolPicker(DesignEditor &editor, bool fresh, QWidget *parent)
    : QDialog(parent), m_editor(editor), m_font(new QFontComboBox), m_table(new SymbolTable),
      m_hint(new QLabel)
{
    setObjectName(u"SymbolPicker"_s);
    setWindowTitle(u"Simge"_s);
    if (!fresh)
        editor.beginEditing(u"Simge"_s);
    const TextElement former = editor.layout().texts[editor.selection().front().index];
    auto *column = new QVBoxLayout(this);
    auto *label = new QLabel(u"&Yazı tipi:"_s);
    label->setBuddy(m_font);
    m_font->setObjectName(u"font"_s);
    m_table->setObjectName(u"table"_s);
    m_hint->setObjectName(u"hint"_s);
    m_hint->setWordWrap(true);
    auto *area = new QScrollArea;
    area->setWidget(m_table);
    area->setMinimumSize(m_table->sizeHint().width() + 24, 300);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_take = buttons->button(QDialogButtonBox::Ok);
    m_take->setText(u"&Koy"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"&Vazgeç"_s);
    for (QWidget *widget : std::initializer_list<QWidget *>{label, m_font, area, m_hint, buttons})
        column->addWidget(widget);

    connect(m_font, &QFontComboBox::currentTextChanged, this, &SymbolPicker::chooseFont);
    connect(m_table, &SymbolTable::chosen, this, &SymbolPicker::choose);
    connect(m_table, &SymbolTable::taken, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    const QStringList fonts = symbolFonts();
    const bool keep = !fresh && !former.font.name.isEmpty();
    const QString family = keep              ? former.font.name
                           : fonts.isEmpty() ? QFont().defaultFamily()
                                             : fonts.front();
    if (fonts.isEmpty())
        m_hint->setText(u"Bu bilgisayarda simge yazı tipi (Wingdings, Webdings) yok; başka bir "
                        u"yazı tipinin işaretlerini kullanabilirsiniz."_s);
    m_font->setCurrentText(family);
    chooseFont(family);
    if (!former.caption.isEmpty())
        m_table->choose(former.caption.front());
    m_table->setFocus();
}

void SymbolPicker::chooseFont(const QString &family)
{
    m_table->show(family, symbolsOf(family));
    m_take->setEnabled(!m_table->isEmpty());
}

void SymbolPicker::choose(QChar symbol)
{
    const QString family = m_font->currentText();
    m_editor.changeEach<TextElement>(u"Simge"_s, 0, [&](TextElement &text) {
        text.field.clear();
        text.caption = symbol;
        text.font.name = family;
    });
}

void SymbolPicker::done(int result)
{
    m_editor.endEditing(result == QDialog::Accepted);
    QDialog::done(result);
}
