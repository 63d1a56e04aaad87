#include "labels/layout/layout_folder.h"

#include "common/whole_file.h"
#include "labels/layout/layout_encoding.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestFile = 1 << 24; ///< bytes; no layout comes near

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(kLargestFile) : QByteArray();
}

} // namespace

QString LayoutFolder::path(const QString &name) const
{
    return layoutFolder(m_directory) + u'/' + name;
}

QStringList LayoutFolder::names() const
{
    return QDir(layoutFolder(m_directory))
        .entryList({u"*.ayr"_s}, QDir::Files, QDir::Name | QDir::LocaleAware);
}

QString LayoutFolder::find(const QString &typed) const
{
    const QStringList all = names();
    for (const QString &wanted : {typed, layoutFileName(typed)})
        for (const QString &name : all)
            if (name.compare(wanted, Qt::CaseInsensitive) == 0)
                return name;
    return {};
}

bool LayoutFolder::isReadable(const QString &name) const
{
    return encodingOf(bytesOf(path(name))) == LayoutEncoding::codePage;
}

bool LayoutFolder::makeReadable(const QString &name)
{
    const QString file = path(name);
    const QByteArray bytes = bytesOf(file);
    const LayoutEncoding encoding = encodingOf(bytes);
    if (encoding == LayoutEncoding::codePage)
        return true;
    const auto converted = inCodePage(bytes);
    const QString kind = encoding == LayoutEncoding::utf8 ? u"UTF-8"_s : u"UTF-16"_s;
    if (!converted) {
        m_prompt.warn(
            u"“%1” tasarımı bir düzenleyicide %2 olarak kaydedilmiş ve Türkçe "
            u"kodlamada olmayan harfler içeriyor; böyle okunamaz.\n\nDosyayı "
            u"düzenleyicide “ANSI” ya da “Windows-1254” olarak kaydediniz."_s.arg(name, kind),
            false);
        return false;
    }
    if (!m_prompt.confirm(
            u"“%1” tasarımı bir düzenleyicide %2 olarak kaydedilmiş; Türkçe harfleri böyle yanlış "
            u"okunur.\n\nDosya Türkçe kodlamaya (Windows-1254) dönüştürülsün mü?"_s.arg(name,
                                                                                        kind)))
        return false;
    return told(writeWholeFile(file, *converted), file);
}

LabelLayout LayoutFolder::open(const QString &name) const
{
    return openLayout(m_keys, path(name));
}

QString LayoutFolder::defaultName() const
{
    return defaultLayout(m_keys, m_directory);
}

bool LayoutFolder::setDefault(const QString &name)
{
    return told(setDefaultLayout(m_keys, m_directory, name), path(u"Default.zev"_s));
}

bool LayoutFolder::setPrinter(const QString &name, const QString &printer)
{
    return told(m_keys.write(u"print"_s, u"printer"_s, printer, path(name)), path(name));
}

bool LayoutFolder::told(bool written, const QString &file)
{
    if (!written)
        m_prompt.warn(u"Dosya yazılamadı:\n%1"_s.arg(file), true);
    return written;
}
