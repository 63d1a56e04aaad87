#include "labels/layout/layout_folder.h"

#include <QDir>

using namespace Qt::StringLiterals;

QString LayoutFolder::path(const QString &name) const
{
    return layoutFolder(m_program.directory()) + u'/' + name;
}

QStringList LayoutFolder::names() const
{
    return QDir(layoutFolder(m_program.directory()))
        .entryList({u"*.ayr"_s}, QDir::Files, QDir::Name | QDir::LocaleAware);
}

LabelLayout LayoutFolder::open(const QString &name) const
{
    return openLayout(m_program.keys, path(name));
}

QString LayoutFolder::defaultName() const
{
    return defaultLayout(m_program.keys, m_program.directory());
}

bool LayoutFolder::setDefault(const QString &name)
{
    return told(setDefaultLayout(m_program.keys, m_program.directory(), name),
                path(u"Default.zev"_s));
}

bool LayoutFolder::setPrinter(const QString &name, const QString &printer)
{
    return told(m_program.keys.write(u"print"_s, u"printer"_s, printer, path(name)), path(name));
}

bool LayoutFolder::told(bool written, const QString &file)
{
    if (!written)
        m_program.prompt.warn(u"Dosya yazılamadı, seçiminiz saklanmadı:\n%1"_s.arg(file), true);
    return written;
}
