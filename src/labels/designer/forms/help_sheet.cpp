#include "labels/designer/forms/help_sheet.h"

#include "labels/designer/designer_commands.h"

#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString plain(QString caption)
{
    return caption.remove(u'&').remove(u'…').toHtmlEscaped();
}

QString row(const QString &keys, const QString &what)
{
    return u"<tr><td style='padding:2px 18px 2px 0'><b>%1</b></td><td>%2</td></tr>"_s.arg(
        keys.toHtmlEscaped(), what);
}

QString heading(const QString &text)
{
    return u"<tr><td colspan='2' style='padding:10px 0 2px 0; color:#0B6E6E'><b>%1</b></td></tr>"_s
        .arg(text);
}

QString keysOf(const CommandInfo &info)
{
    QStringList shown;
    for (const QString &keys : QString::fromUtf16(info.keys).split(u"; "_s, Qt::SkipEmptyParts))
        shown += QKeySequence(keys, QKeySequence::PortableText).toString(QKeySequence::NativeText);
    return shown.join(u" / "_s);
}

/// Two columns of menus, so that the whole sheet fits a small screen.
QString column(std::initializer_list<CommandMenu> menus)
{
    QString rows;
    for (const CommandMenu menu : menus) {
        rows += heading(plain(captionOf(menu)));
        for (const CommandInfo &info : commandTable())
            if (info.menu == menu && info.keys[0] != u'\0')
                rows += row(keysOf(info), plain(QString::fromUtf16(info.caption)));
    }
    return u"<table>"_s + rows + u"</table>"_s;
}

QString handColumn()
{
    QString rows = heading(u"Fare ve ok tuşları"_s);
    for (const HandHelp &help : handTable())
        rows += row(QString::fromUtf16(help.keys), QString::fromUtf16(help.what));
    return u"<table>"_s + rows + u"</table>"_s;
}

} // namespace

HelpSheet::HelpSheet(QWidget *parent) : QDialog(parent)
{
    setObjectName(u"HelpSheet"_s);
    setWindowTitle(u"Tasarım Tuşları"_s);
    using Menu = CommandMenu;
    const QString text =
        u"<table><tr><td valign='top' style='padding-right:36px'>%1</td>"
        u"<td valign='top' style='padding-right:36px'>%2</td><td valign='top'>%3</td></tr></table>"_s
            .arg(column({Menu::file, Menu::edit, Menu::insert}),
                 column({Menu::element, Menu::align, Menu::order, Menu::view, Menu::sample}),
                 handColumn());
    auto *sheet = new QLabel(text);
    sheet->setTextFormat(Qt::RichText);
    sheet->setMargin(12);
    sheet->setAlignment(Qt::AlignTop);
    auto *area = new QScrollArea;
    area->setWidget(sheet);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto *close = new QPushButton(u"&Kapat"_s);
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto *column = new QVBoxLayout(this);
    column->addWidget(area);
    column->addWidget(close, 0, Qt::AlignRight);
    resize(1180, 640);
}
