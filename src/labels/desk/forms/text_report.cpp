#include "labels/desk/forms/text_report.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TextReport::TextReport(const QString &title, const QString &heading, const QString &lines,
                       QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(heading, this);
    label->setWordWrap(true);
    auto *text = new QPlainTextEdit(lines, this);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    auto *buttons = new QDialogButtonBox(this);
    auto *copy = buttons->addButton(u"&Kopyala"_s, QDialogButtonBox::ActionRole);
    auto *close = buttons->addButton(u"Kapat (Esc)"_s, QDialogButtonBox::RejectRole);
    close->setDefault(true);
    layout->addWidget(label);
    layout->addWidget(text);
    layout->addWidget(buttons);
    connect(copy, &QPushButton::clicked, text, [text] {
        text->selectAll();
        text->copy();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    close->setFocus();
    resize(560, 360);
}
