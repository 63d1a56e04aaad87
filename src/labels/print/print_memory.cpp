#include "labels/print/print_memory.h"

#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kFile = u"yazdirma.zev";

QString sectionOf(const QString &layout)
{
    return u"tasarim "_s + layout;
}

/// Values of a key file are short; the problems of a layout need not be.
QString digest(const QString &problems)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(problems.toUtf8(), QCryptographicHash::Sha1).toHex());
}

} // namespace

QString PrintMemory::read(const QString &section, const QString &key) const
{
    return m_program.keys.read(section, key, m_program.path(kFile));
}

bool PrintMemory::write(const QString &section, const QString &key, const QString &value)
{
    return m_program.keys.write(section, key, value, m_program.path(kFile));
}

bool PrintMemory::isAccepted(const QString &layout, const QString &problems) const
{
    return read(sectionOf(layout), u"kabul"_s) == digest(problems);
}

void PrintMemory::accept(const QString &layout, const QString &problems)
{
    write(sectionOf(layout), u"kabul"_s, digest(problems));
}
