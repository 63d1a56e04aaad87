#include "common/ini_text.h"
#include "common/turkish.h"
#include "platform/machine/profile_key_file.h"
#include "support/cases.h"
#include "support/print_qt.h"
#include "support/wine.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <thread>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

class KeyFiles : public testing::Test
{
protected:
    QString path(const QString &name = u"deneme.zev"_s) const { return folder.filePath(name); }

    QString put(const QByteArray &bytes, const QString &name = u"deneme.zev"_s) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return path(name);
    }

    QByteArray get(const QString &name = u"deneme.zev"_s) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList filesThere() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    }

    QTemporaryDir folder;
    ProfileKeyFile keys;
};

/// What a file says, without what Wine leaves out of every file it writes: blank lines, blanks
/// before a value, and line ends other than its own.
std::string comparable(QByteArray bytes)
{
    if (!runsUnderWine())
        return bytes.toStdString();
    QByteArrayList lines;
    for (const QByteArray &line : bytes.replace('\r', '\n').split('\n'))
        if (!line.trimmed().isEmpty())
            lines += line;
    bytes = lines.join('\n');
    return bytes.replace("= ", "=").toStdString();
}

} // namespace

TEST_F(KeyFiles, AreReadByTheRulesOfProfileFiles)
{
    for (const Case &c : cases(u"key_file_reads"_s)) { // rule, file, section, key, value, remark
        if (!c.value(5).isEmpty() && runsUnderWine())
            continue;
        const QString file = put(turkish::toCodePage1254(c.value(1)));
        EXPECT_EQ(keys.read(c.value(2), c.value(3), file), c.value(4)) << c;
    }
    for (const QByteArray &longest : {QByteArray(254, 'a') + 'b', '"' + QByteArray(254, 'a') + '"'})
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, put("[s]\r\nk=" + longest)), QString(254, u'a'));
}

TEST_F(KeyFiles, AreWrittenByTheRulesOfProfileFiles)
{
    for (const Case &c : cases(u"key_file_writes"_s)) { // rule, before, section, key, value, after
        const QString file = put(turkish::toCodePage1254(c.value(1)));
        EXPECT_TRUE(keys.write(c.value(2), c.value(3), c.value(4), file)) << c;
        EXPECT_EQ(comparable(get()), comparable(turkish::toCodePage1254(c.value(5)))) << c;
    }
    EXPECT_EQ(filesThere(), QStringList{u"deneme.zev"_s});
}

TEST_F(KeyFiles, WritingCreatesTheFileButNoFolder)
{
    QDir(folder.path()).mkdir(u"Şükrü 漢字"_s);
    const QString file = path(u"Şükrü 漢字/yeni.zev"_s);
    EXPECT_TRUE(keys.write(u"s"_s, u"k"_s, u"ğ"_s, file));
    EXPECT_EQ(keys.read(u"S"_s, u"K"_s, file), u"ğ"_s);
    for (const QString &nowhere : {path(u"yok/yeni.zev"_s), QString()}) {
        EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, nowhere));
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, nowhere), QString());
    }
}

TEST_F(KeyFiles, RewritingLeavesNothingOfTheOldFile)
{
    const QString file = put("[old]\r\nk=v\r\n");
    EXPECT_TRUE(keys.rewrite(file, {{u"b"_s, u"k"_s, u"1"_s},
                                    {u"a"_s, u"k"_s, u"2"_s},
                                    {u"B"_s, u"l"_s, u"3\r\n4"_s},
                                    {u"a"_s, u"K"_s, u"5"_s}}));
    EXPECT_EQ(get().toStdString(), "\r\n[b]\r\nk=1\r\nl=3  4\r\n[a]\r\nk=5\r\n");
    EXPECT_TRUE(keys.rewrite(file, {}));
    EXPECT_EQ(get().toStdString(), "\r\n");
}

TEST_F(KeyFiles, ChangesOfOtherProgramsShowAtOnce)
{
    const QString file = path();
    for (int i = 1; i < 30; ++i) {
        put("[s]\r\nk=" + QByteArray::number(i % 10) + "\r\n");
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString::number(i % 10));
        if (i % 10 == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
    }
    QFile::remove(file);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString());
    for (int i = 0; i < 40; ++i) { // more files than are remembered
        const QString name = QString::number(i % 20);
        if (i < 20)
            put("[s]\r\nk=" + name.toLatin1() + "\r\n", name);
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path(name)), name);
    }
}

TEST_F(KeyFiles, DamagedFilesGiveEmptyValuesAndKeepTheirBytes)
{
    QByteArray garbage(100'000, Qt::Uninitialized);
    QRandomGenerator random(1254);
    for (char &byte : garbage)
        byte = static_cast<char>(random.bounded(256));
    const QString file = put(garbage);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString());
    EXPECT_TRUE(keys.write(u"s"_s, u"k"_s, u"v"_s, file));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), u"v"_s);
    EXPECT_TRUE(get().startsWith(garbage) || runsUnderWine());

    QDir(folder.path()).mkdir(u"klasor.ayr"_s);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path(u"klasor.ayr"_s)), QString());
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, path(u"klasor.ayr"_s)));
    EXPECT_FALSE(keys.rewrite(path(u"klasor.ayr"_s), {}));
}

TEST_F(KeyFiles, HugeFilesTakeTimeInProportion)
{
    QByteArray sections;
    for (int i = 0; i < 60'000; ++i)
        sections += '[' + QByteArray::number(i) + "]\n";
    EXPECT_TRUE(keys.write(u"59999"_s, u"k"_s, u"v"_s, put(sections)));
    EXPECT_EQ(keys.read(u"59999"_s, u"k"_s, path()), u"v"_s);

    const QByteArray open(1'000'000, '[');
    EXPECT_EQ(keys.read(u"["_s, u"k"_s, put("[s]\n" + open + "\nk=v")), QString());
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path()), u"v"_s);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, put("[s]\nk=" + QByteArray(1'000'000, '"'))),
              QString(IniText::kLongestValue, u'"'));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, put("[s]\n" + QByteArray(1'000'000, '\r') + "k=v")),
              u"v"_s);
}

#ifdef Q_OS_WIN

/// On other systems our own reading stands in for the profile functions: here both are at hand.
TEST_F(KeyFiles, TheSystemReadsAndWritesAsWeDoElsewhere)
{
    const QByteArrayList lines = {"[s]",          " [ S ] ", "[t] rest",   "[u", "k=v",
                                  "K = \" w \" ", "l='x'",   "l = a=b ;c", "=v", ";k=1",
                                  " ; l=2",       "k=",      "\x1A",       "",   " \t ",
                                  "\xDE=\xFD",    "nonsense"};
    const QByteArrayList lineEnds = {"\r\n", "\r\n", "\n", "\r"};
    QRandomGenerator random(1254);
    const auto anyOf = [&](const QByteArrayList &list) {
        return list.at(random.bounded(list.size()));
    };
    const auto agree = [&](const IniText &ours, const QString &file) {
        for (const char *section : {"s", "t", "u"})
            for (const char *key : {"k", "l", "\xDE"})
                EXPECT_EQ(
                    keys.read(QString::fromLatin1(section), turkish::fromCodePage1254(key), file),
                    turkish::fromCodePage1254(ours.value(section, key)))
                    << section << ' ' << key << " in "
                    << ours.bytes().toPercentEncoding().toStdString();
    };
    for (int i = 0; i < 300 && !HasFailure(); ++i) {
        QByteArray bytes;
        for (int line = random.bounded(8); line >= 0; --line)
            bytes += anyOf(lines) + anyOf(lineEnds);
        const QString file = put(bytes);
        IniText ours(bytes);
        agree(ours, file);
        for (const QByteArray &value :
             {anyOf({"1", "", " 2 ", "'3'"}), anyOf({"4", "\"5", "6\r7"})}) {
            const QByteArray section = anyOf({"s", "T", "u"});
            const QByteArray key = anyOf({"k", "L"});
            ours.setValue(section, key, value);
            EXPECT_TRUE(keys.write(QString::fromLatin1(section), QString::fromLatin1(key),
                                   QString::fromLatin1(value), file));
            agree(ours, file);
        }
    }
}

#endif

#ifdef Q_OS_UNIX

TEST_F(KeyFiles, OnlyFilesOfASensibleSizeAreRead)
{
    const QString pipe = path(u"boru"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, pipe), QString());
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, pipe));
    EXPECT_FALSE(keys.rewrite(pipe, {}));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, u"/dev/zero"_s), QString());

    const QString huge = put("[s]\r\nk=v\r\n");
    ASSERT_TRUE(QFile::resize(huge, qint64{1} << 40));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, huge), QString());
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"w"_s, huge));
}

TEST_F(KeyFiles, AFolderThatCannotBeWrittenLeavesTheFile)
{
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, u"/proc/yeni.zev"_s));
    if (geteuid() == 0)
        GTEST_SKIP() << "the superuser writes everywhere";
    const QString file = put("[s]\r\nk=v\r\n");
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"w"_s, file));
    EXPECT_FALSE(keys.rewrite(file, {}));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), u"v"_s);
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    QFile::setPermissions(file, QFile::Permissions());
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString());
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"w"_s, file)); // what it holds is not known
}

TEST_F(KeyFiles, AFullDiskLeavesTheOldFile)
{
    const QString file = put("[s]\r\nk=v\r\n");
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small{100, usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const bool written = keys.write(u"s"_s, u"k"_s, QString(200, u'x'), file);
    const bool rewritten = keys.rewrite(file, {{u"s"_s, u"k"_s, QString(200, u'x')}});
    setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_FALSE(written);
    EXPECT_FALSE(rewritten);
    EXPECT_EQ(get().toStdString(), "[s]\r\nk=v\r\n");
    EXPECT_EQ(filesThere(), QStringList{u"deneme.zev"_s});
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), u"v"_s);
}

#endif
