#pragma once

#include "support/files.h"
#include "support/test_machine.h"

#include <QRegularExpression>
#include <QStringList>

#include <ostream>
#include <vector>

/// One line of a table of cases.
struct Case : QStringList
{
    QString line; ///< told when the case fails

    double number(qsizetype field) const { return value(field).toDouble(); }
    std::string utf8(qsizetype field) const { return value(field).toStdString(); }

    friend std::ostream &operator<<(std::ostream &out, const Case &one)
    {
        return out << one.line.toStdString();
    }
};

/// The table tests/cases/NAME.txt: a case in each line, its fields between " | ". Blanks around a
/// field do not count, \s is a blank that does; \n, \r, \t, \b, \0 and a doubled backslash are as
/// in C; \z is the old end-of-file mark. Lines that are empty or begin with "#" are remarks.
inline std::vector<Case> cases(const QString &name)
{
    static constexpr QStringView kEscapes = u"nrtb0sz\\";
    static constexpr QStringView kMeant(u"\n\r\t\b\0 \x1A\\", 8);
    static const QRegularExpression kBar(QStringLiteral(" \\|(?= |$)"));
    const auto plain = [](const QString &field) {
        QString text;
        for (qsizetype i = 0; i < field.size(); ++i) {
            const qsizetype code = field.at(i) == u'\\' ? kEscapes.indexOf(field.at(i + 1)) : -1;
            text += code < 0 ? field.at(i) : kMeant.at(code);
            i += code < 0 ? 0 : 1;
        }
        return text;
    };
    std::vector<Case> table;
    const QString path = sourcePath("/tests/cases/%1.txt").arg(name);
    for (const QString &line : QString::fromUtf8(readFile(path)).split(u'\n')) {
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        Case &one = table.emplace_back();
        one.line = line;
        for (const QString &field : line.split(kBar))
            one += plain(field.trimmed());
    }
    EXPECT_FALSE(table.empty()) << path.toStdString();
    return table;
}
