#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

/// Lets failed expectations show Qt texts.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &list, std::ostream *out)
{
    for (const QString &text : list)
        *out << "\n  " << text.toStdString();
}
