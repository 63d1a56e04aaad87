#include "labels/designer/forms/element_dialog.h"

#include "labels/designer/designer_session.h"
#include "labels/designer/forms/barcode_page.h"
#include "labels/designer/forms/picture_page.h"
#include "labels/designer/forms/text_page.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ElementDialog::ElementDialog(DesignerSession &session, bool fresh, QWidget *parent)
    : QDialog(parent), m_session(session)
{
    DesignEditor &editor = session.editor();
    if (!fresh)
        editor.beginEditing(u"Özellikler"_s);
    setObjectName(u"ElementDialog"_s);
    new QVBoxLayout(this);
    setMinimumWidth(420);
    switch (editor.selection().front().kind) {
    case ElementKind::picture:
        take(new PicturePage(editor, session.pictures()), u"Resim"_s);
        break;
    case ElementKind::barcode:
        take(new BarcodePage(session), u"Barkod"_s);
        break;
    default:
        take(new TextPage(session), u"Metin"_s);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(u"&Tamam"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"&Vazgeç"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
}

template <typename Page>
void ElementDialog::take(Page *page, const QString &title)
{
    setWindowTitle(title);
    layout()->addWidget(page);
    page->showSelection();
    page->enter();
    connect(&m_session.editor(), &DesignEditor::designChanged, page, &Page::showSelection);
}

void ElementDialog::done(int result)
{
    m_session.editor().endEditing(result == QDialog::Accepted);
    QDialog::done(result);
}
