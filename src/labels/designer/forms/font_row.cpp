#include "labels/designer/forms/font_row.h"

#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMergePoints = 21;
constexpr int kMergeName = 22;

} // namespace

FontRow::FontRow(const Controls &controls, QObject *parent) : QObject(parent), m_controls(controls)
{
    QFont letter = m_controls.bold->font();
    letter.setBold(true);
    m_controls.bold->setFont(letter);
    letter.setBold(false);
    letter.setItalic(true);
    m_controls.italic->setFont(letter);
    letter.setItalic(false);
    letter.setUnderline(true);
    m_controls.underline->setFont(letter);
    letter.setUnderline(false);
    letter.setStrikeOut(true);
    m_controls.strike->setFont(letter);

    connect(m_controls.name, &QFontComboBox::currentTextChanged, this, [this](const QString &name) {
        if (!name.isEmpty())
            Q_EMIT edited(u"Yazı tipi"_s, kMergeName,
                          [name](PaperFont &font) { font.name = name; });
    });
    connect(m_controls.points, &QDoubleSpinBox::valueChanged, this, [this](double points) {
        Q_EMIT edited(u"Punto"_s, kMergePoints, [points](PaperFont &font) { font.size = points; });
    });
    connectStyle(m_controls.bold, &PaperFont::bold);
    connectStyle(m_controls.italic, &PaperFont::italic);
    connectStyle(m_controls.underline, &PaperFont::underline);
    connectStyle(m_controls.strike, &PaperFont::strikeThrough);
}

void FontRow::connectStyle(QToolButton *button, bool PaperFont::*style)
{
    connect(button, &QToolButton::clicked, this, [this, style](bool on) {
        Q_EMIT edited(u"Yazı biçemi"_s, 0, [style, on](PaperFont &font) { font.*style = on; });
    });
}

void FontRow::showStyle(QToolButton *button, const QList<PaperFont> &fonts, bool PaperFont::*style)
{
    button->setChecked(!fonts.isEmpty() &&
                       std::all_of(fonts.begin(), fonts.end(),
                                   [style](const PaperFont &font) { return font.*style; }));
}

void FontRow::show(const QList<PaperFont> &fonts)
{
    const QSignalBlocker quietName(m_controls.name);
    const QSignalBlocker quietPoints(m_controls.points);
    if (fonts.isEmpty())
        return;
    const PaperFont &first = fonts.front();
    const auto same = [&](auto PaperFont::*value) {
        return std::all_of(fonts.begin(), fonts.end(),
                           [&](const PaperFont &font) { return font.*value == first.*value; });
    };
    if (!m_controls.name->lineEdit()->hasFocus() || m_controls.name->currentText() != first.name)
        m_controls.name->setCurrentText(same(&PaperFont::name) ? first.name : QString());
    if (same(&PaperFont::size))
        m_controls.points->setValue(first.size);
    showStyle(m_controls.bold, fonts, &PaperFont::bold);
    showStyle(m_controls.italic, fonts, &PaperFont::italic);
    showStyle(m_controls.underline, fonts, &PaperFont::underline);
    showStyle(m_controls.strike, fonts, &PaperFont::strikeThrough);
}
