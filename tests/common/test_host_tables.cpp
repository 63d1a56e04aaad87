#include "common/host_tables.h"
#include "support/test_machine.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using host_tables::Database;
using host_tables::Right;

namespace {

QString readText(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The program's own text without remarks, and without what only looks at the host's databases or
/// makes one.
QString programText()
{
    static const QRegularExpression elsewhere(
        u"/(platform|tour)/|/host_tables\\.|/diagnosis|/host_check\\."_s);
    QString text;
    QDirIterator files(sourcePath("/src"), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        if (const QString path = files.next(); !path.contains(elsewhere))
            text += readText(path);
    return text.remove(QRegularExpression(u"//[^\\n]*"_s));
}

QSet<QString> found(const QString &text, const QString &pattern)
{
    QSet<QString> words;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        words += matches.next().captured(1);
    return words;
}

QStringList sorted(const QSet<QString> &words)
{
    QStringList list(words.begin(), words.end());
    list.sort();
    return list;
}

} // namespace

/// The statements stand in the program's text with the names of their tables and columns; a table
/// whose name stands alone between quotes is handed to a maker of statements.
TEST(HostTables, NameWhatTheStatementsUse)
{
    const QString text = programText();
    const QSet<QString> inserted = found(text, u"(?:INSERT INTO |insertInto\\(u\")([A-Z]+)"_s);
    const QSet<QString> updated = found(text, u"UPDATE ([A-Z]+) SET"_s);
    const QSet<QString> named = found(text, u"(?<!insertInto\\()u\"([A-Z]{4,})\""_s);
    QSet<QString> selected = found(text, u"from +([A-Z]{4,})"_s);

    QSet<QString> tables;
    QSet<QString> columns;
    QMap<Right, QSet<QString>> granted;
    for (const host_tables::Table &table : host_tables::all()) {
        tables += table.name;
        columns += QSet<QString>(table.columns.begin(), table.columns.end());
        for (const host_tables::Grant &grant : table.grants)
            granted[grant.right] += table.name;
    }
    selected += (named & tables) - columns;
    EXPECT_EQ(sorted(granted[Right::select] - QSet{u"STKBARKOD"_s}),
              sorted(selected - QSet{u"STKBARKOD"_s})); // a table and a column
    EXPECT_EQ(sorted(granted[Right::insert]), sorted(inserted));
    EXPECT_EQ(sorted(granted[Right::update]), sorted(updated));

    const QSet<QString> words = found(text.toUpper(), u"\\b([A-Z][A-Z0-9]{4,})\\b"_s);
    EXPECT_EQ(sorted(columns - words), QStringList()) << "columns that no statement names";
    const QSet<QString> quoted =
        found(text, u"[\",( ]((?:STK|CAR|FAT|FFT|EVR|PER|DEP|KDV)[A-Z]{2,}[0-9]?)[\",)=]"_s);
    const QSet<QString> plainWords = {u"FATURA"_s, u"FATURASI"_s, u"PERAKENDE"_s};
    EXPECT_EQ(sorted(quoted - columns - tables - plainWords), QStringList())
        << "words that are neither a table nor a column";
}

/// TEZGAH_REWRITE_GOLDEN=1 writes the list into the guide.
TEST(HostTables, TheGuideListsTheRights)
{
    const QString path = sourcePath("/docs/sunucu.md");
    const QString guide = readText(path);
    const qsizetype from = guide.indexOf(u"CREATE LOGIN"_s);
    const qsizetype to = guide.indexOf(u"```"_s, from);
    ASSERT_TRUE(from >= 0 && to > from);
    const QStringList parts = {
        u"CREATE LOGIN [tezgah] WITH PASSWORD = 'GucluBirParola1', DEFAULT_LANGUAGE = [Türkçe];"_s,
        host_tables::databaseScript(Database::master, u"ANA"_s, u"tezgah"_s).join(u'\n'),
        host_tables::databaseScript(Database::company, u"SIRKET"_s, u"tezgah"_s).join(u'\n')};
    const QString script = parts.join(u"\n\n"_s) + u'\n';
    if (qEnvironmentVariableIntValue("TEZGAH_REWRITE_GOLDEN") == 1) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write((guide.first(from) + script + guide.sliced(to)).toUtf8());
        return;
    }
    EXPECT_EQ(guide.sliced(from, to - from).toStdString(), script.toStdString());
}
