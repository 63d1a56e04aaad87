#include "labels/designer/forms/text_page.h"

#include "labels/designer/designer_session.h"
#include "labels/designer/forms/font_row.h"
#include "labels/print/label_fields.h"
#include "ui_text_page.h"

#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMergeCaption = 31;
constexpr int kShownFields = 20;

const std::pair<double, QString> kAngles[] = {{0, u"Düz"_s},
                                              {90, u"Aşağıdan yukarı (90°)"_s},
                                              {180, u"Baş aşağı (180°)"_s},
                                              {270, u"Yukarıdan aşağı (270°)"_s}};

/// True when all texts have this value.
template <typename Is>
bool all(const QList<const TextElement *> &texts, Is is)
{
    return std::all_of(texts.begin(), texts.end(),
                       [&](const TextElement *text) { return is(*text); });
}

} // namespace

TextPage::TextPage(DesignerSession &session, QWidget *parent)
    : QWidget(parent), m_session(session), m_editor(session.editor()),
      m_ui(std::make_unique<Ui::TextPage>())
{
    m_ui->setupUi(this);
    m_ui->field->setMaxVisibleItems(kShownFields);
    m_ui->field->addItem(u"Serbest metin"_s);
    for (const LabelField &field : labelFields())
        addField(field.name, field.source);
    for (const auto &[angle, name] : kAngles)
        m_ui->angle->addItem(name, angle);
    connectContent();
    connectLook();
    connectChoices();
}

TextPage::~TextPage() = default;

void TextPage::addField(const QString &name, const QString &source)
{
    m_ui->field->addItem(name);
    m_ui->field->setItemData(m_ui->field->count() - 1, source, Qt::ToolTipRole);
}

/// The columns are asked for when somebody edits a text, not with each window.
void TextPage::offerColumns()
{
    if (m_columns == m_session.columns())
        return;
    m_columns = m_session.columns();
    m_ui->field->insertSeparator(m_ui->field->count());
    for (const QString &column : m_columns)
        if (m_ui->field->findText(column, Qt::MatchFixedString) < 0)
            addField(column, u"Stok kartının %1 sütunu"_s.arg(column));
}

void TextPage::enter()
{
    m_ui->caption->setFocus();
    m_ui->caption->selectAll();
}

template <typename Change>
void TextPage::change(const QString &what, int merge, Change each)
{
    m_editor.changeEach<TextElement>(what, merge, each);
}

void TextPage::connectContent()
{
    connect(m_ui->field, &QComboBox::activated, this, &TextPage::bind);
    connect(m_ui->caption, &QLineEdit::textEdited, this, [this](const QString &caption) {
        change(u"Metin"_s, kMergeCaption, [&](TextElement &text) {
            text.field.clear();
            text.caption = caption;
        });
    });
}

/// A bound text's caption is its field's name; a text that becomes free keeps it to start from.
void TextPage::bind(int index)
{
    const QString field = index > 0 ? m_ui->field->itemText(index) : QString();
    change(u"Alan"_s, 0, [&](TextElement &text) {
        text.field = field;
        if (!field.isEmpty())
            text.caption = field;
    });
    if (field.isEmpty())
        enter();
}

void TextPage::connectLook()
{
    auto *row = new FontRow(
        {m_ui->font, m_ui->points, m_ui->bold, m_ui->italic, m_ui->underline, m_ui->strike}, this);
    row->setObjectName(u"fontRow"_s);
    connect(row, &FontRow::edited, this,
            [this](const QString &what, int merge, const std::function<void(PaperFont &)> &edit) {
                change(what, merge, [&](TextElement &text) { edit(text.font); });
            });
    connect(m_ui->colour, &ColourButton::edited, this, [this](int colour) {
        change(u"Renk"_s, 0, [&](TextElement &text) { text.colour = colour; });
    });
}

void TextPage::connectChoices()
{
    const std::pair<QToolButton *, QString> alignments[] = {
        {m_ui->alignLeft, u"1"_s}, {m_ui->alignCentre, u"2"_s}, {m_ui->alignRight, u"3"_s}};
    for (const auto &[button, code] : alignments)
        connect(button, &QToolButton::clicked, this, [this, alignment = code] {
            change(u"Hiza"_s, 0, [&](TextElement &text) { text.alignment = alignment; });
            showSelection();
        });
    connect(m_ui->angle, &QComboBox::activated, this, [this](int index) {
        change(u"Yön"_s, 0, [&](TextElement &text) { text.angle = kAngles[index].first; });
    });
    connect(m_ui->border, &QCheckBox::clicked, this, [this](bool on) {
        change(u"Çerçeve"_s, 0, [&](TextElement &text) { text.border = on; });
    });
    connect(m_ui->tr, &QCheckBox::clicked, this, [this](bool on) {
        change(u"İşaret"_s, 0, [&](TextElement &text) { text.marked = on; });
    });
}

void TextPage::showSelection()
{
    QList<const TextElement *> texts;
    QList<PaperFont> fonts;
    for (const LabelRef ref : m_editor.selection())
        if (ref.kind == ElementKind::text) {
            texts += &m_editor.layout().texts[ref.index];
            fonts += texts.back()->font;
        }
    if (texts.isEmpty())
        return;
    qobject_cast<FontRow *>(findChild<QObject *>(u"fontRow"_s))->show(fonts);
    showChoices(texts);
}

void TextPage::showChoices(const QList<const TextElement *> &texts)
{
    offerColumns();
    const TextElement &first = *texts.front();
    const auto same = [&](auto TextElement::*value) {
        return all(texts, [&](const TextElement &text) { return text.*value == first.*value; });
    };
    if (same(&TextElement::field)) {
        const int known = m_ui->field->findText(first.field);
        if (!first.field.isEmpty() && known < 0)
            m_ui->field->addItem(first.field);
        m_ui->field->setCurrentIndex(first.field.isEmpty() ? 0
                                                           : m_ui->field->findText(first.field));
    } else {
        m_ui->field->setCurrentIndex(-1);
    }
    const QString caption = same(&TextElement::caption) ? first.caption : QString();
    if (m_ui->caption->text() != caption)
        m_ui->caption->setText(caption);
    m_ui->colour->showColour(same(&TextElement::colour) ? std::optional(first.colour)
                                                        : std::nullopt);
    const auto aligned = [&](const QString &code) {
        return all(texts, [&](const TextElement &text) { return text.alignment == code; });
    };
    m_ui->alignCentre->setChecked(aligned(u"2"_s));
    m_ui->alignRight->setChecked(aligned(u"3"_s));
    m_ui->alignLeft->setChecked(all(texts, [](const TextElement &t) {
        return t.alignment != u"2"_s && t.alignment != u"3"_s;
    }));
    m_ui->angle->setCurrentIndex(same(&TextElement::angle) ? m_ui->angle->findData(first.angle)
                                                           : -1);
    m_ui->border->setChecked(all(texts, [](const TextElement &text) { return text.border; }));
    m_ui->tr->setChecked(all(texts, [](const TextElement &text) { return text.marked; }));
}
