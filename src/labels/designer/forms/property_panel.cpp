#include "labels/designer/forms/property_panel.h"

#include "labels/designer/designer_session.h"
#include "labels/designer/forms/barcode_page.h"
#include "labels/designer/forms/geometry_page.h"
#include "labels/designer/forms/picture_page.h"
#include "labels/designer/forms/text_page.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool allOf(const RefSet &refs, ElementKind kind)
{
    return !refs.isEmpty() &&
           std::all_of(refs.begin(), refs.end(), [kind](LabelRef ref) { return ref.kind == kind; });
}

QString kindName(ElementKind kind)
{
    switch (kind) {
    case ElementKind::picture:
        return u"Resim"_s;
    case ElementKind::barcode:
        return u"Barkod"_s;
    default:
        return u"Metin"_s;
    }
}

} // namespace

PropertyPanel::PropertyPanel(DesignerSession &session, QWidget *parent)
    : QWidget(parent), m_session(session), m_head(new QLabel), m_overview(new QLabel),
      m_geometry(new GeometryPage(session.editor())), m_text(new TextPage(session)),
      m_barcode(new BarcodePage(session)),
      m_picture(new PicturePage(session.editor(), session.pictures())), m_notice(new QLabel),
      m_fix(new QPushButton(u"Okunur boya ge&tir"_s))
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->setContentsMargins(10, 10, 10, 10);
    QFont bold = m_head->font();
    bold.setBold(true);
    m_head->setFont(bold);
    m_head->setWordWrap(true);
    m_head->setObjectName(u"head"_s);
    column->addWidget(m_head);
    m_overview->setObjectName(u"overview"_s);
    m_overview->setTextFormat(Qt::PlainText);
    m_overview->setWordWrap(true);
    column->addWidget(m_overview);
    m_geometryGroup = group(u"Konum ve boyut"_s, m_geometry);
    m_textGroup = group(u"Metin"_s, m_text);
    m_barcodeGroup = group(u"Barkod"_s, m_barcode);
    m_pictureGroup = group(u"Resim"_s, m_picture);
    m_notice->setObjectName(u"notice"_s);
    m_notice->setWordWrap(true);
    m_notice->setStyleSheet(u"background:#FDF0DF; border:1px solid #D9822B; padding:6px;"_s);
    column->addWidget(m_notice);
    m_fix->setObjectName(u"fix"_s);
    column->addWidget(m_fix);
    column->addStretch();
    int widest = 0; // of the pages, of which one shows at a time
    for (const QGroupBox *box : {m_geometryGroup, m_textGroup, m_barcodeGroup, m_pictureGroup})
        widest = std::max(widest, box->minimumSizeHint().width());
    setMinimumWidth(widest + column->contentsMargins().left() + column->contentsMargins().right());
    connect(m_fix, &QPushButton::clicked, this, &PropertyPanel::fixWanted);
    connect(&session.editor(), &DesignEditor::selectionChanged, this,
            &PropertyPanel::showSelection);
    connect(&session.editor(), &DesignEditor::designChanged, this, &PropertyPanel::showSelection);
    showNotice({}, false);
    showSelection();
}

QGroupBox *PropertyPanel::group(const QString &title, QWidget *page)
{
    auto *box = new QGroupBox(title);
    auto *inner = new QVBoxLayout(box);
    inner->setContentsMargins(8, 6, 8, 8);
    inner->addWidget(page);
    layout()->addWidget(box);
    return box;
}

void PropertyPanel::showSelection()
{
    const DesignEditor &editor = m_session.editor();
    const RefSet &refs = editor.selection();
    const bool free = !editor.changeable().isEmpty();
    if (refs.isEmpty())
        m_head->setText(u"Tasarım"_s);
    else if (refs.size() == 1)
        m_head->setText(u"%1 %2%3"_s.arg(kindName(refs.front().kind))
                            .arg(refs.front().index + 1)
                            .arg(free ? QString() : u" (kilitli)"_s));
    else
        m_head->setText(
            u"%1 öge seçili%2"_s.arg(refs.size()).arg(free ? QString() : u" (kilitli)"_s));
    const auto show = [&](QGroupBox *box, bool on, auto *page) {
        box->setVisible(on);
        box->setEnabled(free);
        if (on)
            page->showSelection();
    };
    m_overview->setVisible(refs.isEmpty());
    show(m_geometryGroup, !refs.isEmpty(), m_geometry);
    show(m_textGroup, allOf(refs, ElementKind::text), m_text);
    show(m_barcodeGroup, allOf(refs, ElementKind::barcode), m_barcode);
    show(m_pictureGroup, allOf(refs, ElementKind::picture), m_picture);
}

void PropertyPanel::showNotice(const QString &text, bool fixable)
{
    if (m_session.editor().selection().isEmpty())
        m_overview->setText(m_session.overview());
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
    m_fix->setVisible(fixable);
}

void PropertyPanel::enter()
{
    for (QWidget *next = nextInFocusChain(); next != this; next = next->nextInFocusChain())
        if (isAncestorOf(next) && next->isVisible() && next->isEnabled() &&
            next->focusPolicy() != Qt::NoFocus) {
            next->setFocus(Qt::ShortcutFocusReason);
            return;
        }
}

void PropertyPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT left();
    else
        QWidget::keyPressEvent(event);
}
