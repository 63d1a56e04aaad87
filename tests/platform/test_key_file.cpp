#include "common/ini_text.h"
#include "common/turkish.h"
#include "platform/machine/profile_key_file.h"
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

/// Bytes of a literal, NUL bytes included.
template <std::size_t n>
QByteArray raw(const char (&text)[n])
{
    return {text, static_cast<qsizetype>(n - 1)};
}

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

struct ReadCase
{
    const char *rule;
    QByteArray file;
    QString section;
    QString key;
    QString value;
    bool underWine = true; ///< false where Wine does not do as Windows does
};

const ReadCase kReadCases[] = {
    {"plain", "[s]\r\nk=v\r\n", u"s"_s, u"k"_s, u"v"_s},
    {"no section", "[s]\r\nk=v\r\n", u"t"_s, u"k"_s, u""_s},
    {"no key", "[s]\r\nk=v\r\n", u"s"_s, u"l"_s, u""_s},
    {"empty value", "[s]\r\nk=\r\n", u"s"_s, u"k"_s, u""_s},
    {"empty file", "", u"s"_s, u"k"_s, u""_s},
    {"blanks around key and value", "[s]\r\n \tk \t=\t v w \t\r\n", u"s"_s, u"k"_s, u"v w"_s},
    {"blanks around the heading", "  [ s ]  \r\nk=v\r\n", u"s"_s, u"k"_s, u"v"_s},
    {"blanks around the names asked for", "[s]\r\nk=v\r\n", u" s "_s, u" k "_s, u"v"_s},
    {"text behind the heading", "[s] rest ]\r\nk=v\r\n", u"s"_s, u"k"_s, u"v"_s, false},
    {"old end-of-file mark", "[s]\r\nk=v\x1A", u"s"_s, u"k"_s, u"v"_s},
    {"double quotes", "[s]\r\nk= \" v \" \r\n", u"s"_s, u"k"_s, u" v "_s},
    {"single quotes", "[s]\r\nk=' v '\r\n", u"s"_s, u"k"_s, u" v "_s},
    {"only one pair of quotes", "[s]\r\nk=\"\"v\"\"\r\n", u"s"_s, u"k"_s, u"\"v\""_s},
    {"unequal quotes stay", "[s]\r\nk=\"v'\r\n", u"s"_s, u"k"_s, u"\"v'"_s},
    {"one quote stays", "[s]\r\nk=\"\r\n", u"s"_s, u"k"_s, u"\""_s},
    {"quotes around nothing", "[s]\r\nk=\"\"\r\n", u"s"_s, u"k"_s, u""_s},
    {"inner quotes stay", "[s]\r\nk=15\" ekran\r\n", u"s"_s, u"k"_s, u"15\" ekran"_s},
    {"names without regard to case", "[SeC]\r\nKeY=v\r\n", u"sEc"_s, u"kEy"_s, u"v"_s},
    {"Turkish names without regard to case", "[\xD0\xDE\xD6\xC7]\r\n\xDC\xDE=v\r\n", u"ğşöç"_s,
     u"üş"_s, u"v"_s, false},
    {"i and I are one letter", "[TIT]\r\nI=v\r\n", u"tit"_s, u"i"_s, u"v"_s},
    {"dotless i is a letter of its own", "[s]\r\n\xFD=v\r\n", u"s"_s, u"I"_s, u""_s},
    {"dotless and dotted i are two letters", "[s]\r\n\xFD=v\r\n", u"s"_s, u"İ"_s, u""_s},
    {"dotted I is a letter of its own", "[s]\r\n\xDD=v\r\n", u"s"_s, u"i"_s, u""_s},
    {"first key wins", "[s]\r\nk=1\r\nK=2\r\n", u"s"_s, u"k"_s, u"1"_s},
    {"first section wins", "[s]\r\nk=1\r\n[t]\r\n[S]\r\nk=2\r\nl=3\r\n", u"s"_s, u"k"_s, u"1"_s},
    {"later section of the name is not read", "[s]\r\nk=1\r\n[S]\r\nl=3\r\n", u"s"_s, u"l"_s,
     u""_s},
    {"comment line", "[s]\r\n;k=1\r\n ; k=2\r\nk=3\r\n", u"s"_s, u"k"_s, u"3"_s},
    {"a comment is no key", "[s]\r\n;k=1\r\n", u"s"_s, u";k"_s, u""_s},
    {"no comment behind a value", "[s]\r\nk=v ; w\r\n", u"s"_s, u"k"_s, u"v ; w"_s},
    {"number sign is no comment", "[s]\r\n#k=v\r\n", u"s"_s, u"#k"_s, u"v"_s},
    {"unknown line", "[s]\r\nnonsense\r\nk=v\r\n", u"s"_s, u"k"_s, u"v"_s},
    {"a line without = has no value", "[s]\r\nk\r\n", u"s"_s, u"k"_s, u""_s},
    {"= inside the value", "[s]\r\nk=a=b = c\r\n", u"s"_s, u"k"_s, u"a=b = c"_s},
    {"heading without bracket", "[s]\r\nk=1\r\n[t\r\nl=2\r\n", u"s"_s, u"l"_s, u"2"_s},
    {"heading without bracket opens nothing", "[t\r\nl=2\r\n", u"t"_s, u"l"_s, u""_s},
    {"key above the first section", "k=v\r\n[s]\r\n", u"s"_s, u"k"_s, u""_s},
    {"key above the first section has none", "k=v\r\n[s]\r\n", u""_s, u"k"_s, u""_s},
    {"section without a name", "[]\r\nk=v\r\n", u""_s, u"k"_s, u""_s},
    {"no final line end", "[s]\r\nk=v", u"s"_s, u"k"_s, u"v"_s},
    {"LF only", "[s]\nk=v\nl=w\n", u"s"_s, u"l"_s, u"w"_s},
    {"CR only", "[s]\rk=v\rl=w\r", u"s"_s, u"l"_s, u"w"_s},
    {"mixed line ends", "[s]\r\r\nk=v\n\rl=w\n", u"s"_s, u"l"_s, u"w"_s},
    {"NUL ends a value", raw("[s]\r\nk=v\0w\r\nl=x\r\n"), u"s"_s, u"k"_s, u"v"_s},
    {"NUL does not end the file", raw("\0\0[t]\r\n[s]\r\nk=v\0w\r\nl=x\r\n"), u"s"_s, u"l"_s,
     u"x"_s},
    {"byte order mark hides the first heading", "\xEF\xBB\xBF[s]\r\nk=v\r\n", u"s"_s, u"k"_s, u""_s,
     false},
    {"byte order mark before an empty line", "\xEF\xBB\xBF\r\n[s]\r\nk=v\r\n", u"s"_s, u"k"_s,
     u"v"_s},
    {"Turkish code page", "[s]\r\nk=\xDE\xFD\xF0\xDD \x80\r\n", u"s"_s, u"k"_s, u"Şığİ €"_s},
    {"254 bytes", "[s]\r\nk=" + QByteArray(253, 'a') + "bc\r\n", u"s"_s, u"k"_s,
     QString(253, u'a') + u'b'},
    {"254 bytes within quotes", "[s]\r\nk=\"" + QByteArray(254, 'a') + "\"\r\n", u"s"_s, u"k"_s,
     QString(254, u'a')},
};

struct WriteCase
{
    const char *rule;
    QByteArray before;
    QString section;
    QString key;
    QString value;
    QByteArray after;
};

const WriteCase kWriteCases[] = {
    {"empty file", "", u"s"_s, u"k"_s, u"v"_s, "[s]\r\nk=v\r\n"},
    {"replaced in place", "[s]\r\na=1\r\nk=old\r\nb=2\r\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\r\na=1\r\nk=v\r\nb=2\r\n"},
    {"the file's spelling stays", "[Sec]\r\nKey = old\r\n", u"sEC"_s, u"kEY"_s, u"v"_s,
     "[Sec]\r\nKey=v\r\n"},
    {"first key is replaced", "[s]\r\nk=1\r\nk=2\r\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\r\nk=v\r\nk=2\r\n"},
    {"first section is written", "[s]\r\n[t]\r\n[s]\r\nk=2\r\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\r\nk=v\r\n[t]\r\n[s]\r\nk=2\r\n"},
    {"new key at the section's end", "[s]\r\na=1\r\n[t]\r\nb=2\r\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\r\na=1\r\nk=v\r\n[t]\r\nb=2\r\n"},
    {"before the blank lines there", "[s]\r\na=1\r\n\r\n \r\n[t]\r\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\r\na=1\r\nk=v\r\n\r\n \r\n[t]\r\n"},
    {"new section at the file's end", "\r\n[s]\r\na=1\r\n", u"t"_s, u"k"_s, u"v"_s,
     "\r\n[s]\r\na=1\r\n[t]\r\nk=v\r\n"},
    {"comments and unknown lines stay", "; top\r\n[s]\r\n; c\r\nwhat\r\n[u\r\nk=1\r\n;end\r\n",
     u"s"_s, u"k"_s, u"v"_s, "; top\r\n[s]\r\n; c\r\nwhat\r\n[u\r\nk=v\r\n;end\r\n"},
    {"no final line end, new key", "[s]\r\na=1", u"s"_s, u"k"_s, u"v"_s, "[s]\r\na=1\r\nk=v\r\n"},
    {"no final line end, new section", "[s]\r\na=1", u"t"_s, u"k"_s, u"v"_s,
     "[s]\r\na=1\r\n[t]\r\nk=v\r\n"},
    {"no final line end, replaced", "[s]\r\nk=1", u"s"_s, u"k"_s, u"v"_s, "[s]\r\nk=v\r\n"},
    {"LF file keeps its other line ends", "[s]\na=1\n[t]\n", u"s"_s, u"k"_s, u"v"_s,
     "[s]\na=1\nk=v\r\n[t]\n"},
    {"line end inside a value", "[s]\r\n", u"s"_s, u"k"_s, u"a\r\n[t]\nb"_s,
     "[s]\r\nk=a  [t] b\r\n"},
    {"blanks and quotes as they are", "[s]\r\n", u"s"_s, u"k"_s, u" \"v\" "_s,
     "[s]\r\nk= \"v\" \r\n"},
    {"Turkish code page", "", u"Şube"_s, u"ağırlık"_s, u"İğne 漢"_s,
     "[\xDEube]\r\na\xF0\xFDrl\xFDk=\xDD\xF0ne ?\r\n"},
    {"empty value stays a key", "[s]\r\nk=v\r\n", u"s"_s, u"k"_s, u""_s, "[s]\r\nk=\r\n"},
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
    for (const ReadCase &c : kReadCases) {
        if (!c.underWine && runsUnderWine())
            continue;
        const QString file = put(c.file);
        EXPECT_EQ(keys.read(c.section, c.key, file), c.value) << c.rule;
    }
}

TEST_F(KeyFiles, AreWrittenByTheRulesOfProfileFiles)
{
    for (const WriteCase &c : kWriteCases) {
        const QString file = put(c.before);
        EXPECT_TRUE(keys.write(c.section, c.key, c.value, file)) << c.rule;
        EXPECT_EQ(comparable(get()), comparable(c.after)) << c.rule;
    }
    EXPECT_EQ(filesThere(), QStringList{u"deneme.zev"_s});
}

TEST_F(KeyFiles, FolderNamesOfAnyLanguageDo)
{
    QDir(folder.path()).mkdir(u"Şükrü 漢字"_s);
    const QString file = put("[s]\r\na=1\r\n", u"Şükrü 漢字/deneme.zev"_s);
    EXPECT_TRUE(keys.write(u"s"_s, u"k"_s, u"ğ"_s, file));
    EXPECT_EQ(keys.read(u"S"_s, u"K"_s, file), u"ğ"_s);
    EXPECT_EQ(keys.read(u"s"_s, u"a"_s, file), u"1"_s);
}

TEST_F(KeyFiles, WritingCreatesTheFileButNoFolder)
{
    EXPECT_TRUE(keys.write(u"s"_s, u"k"_s, u"v"_s, path(u"yeni.zev"_s)));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path(u"yeni.zev"_s)), u"v"_s);
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, path(u"yok/yeni.zev"_s)));
    EXPECT_FALSE(keys.write(u"s"_s, u"k"_s, u"v"_s, QString()));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, QString()), QString());
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
    const QString file = put("[s]\r\nk=0\r\n");
    for (int i = 1; i < 50; ++i) {
        put("[s]\r\nk=" + QByteArray::number(i % 10) + "\r\n");
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString::number(i % 10));
        if (i % 10 == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
    }
    QFile::remove(file);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, file), QString());
    for (int i = 0; i < 20; ++i)
        put("[s]\r\nk=" + QByteArray::number(i) + "\r\n", QString::number(i));
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path(QString::number(i % 20))),
                  QString::number(i % 20));
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
    for (int i = 0; i < 300'000; ++i)
        sections += '[' + QByteArray::number(i) + "]\n";
    EXPECT_TRUE(keys.write(u"299999"_s, u"k"_s, u"v"_s, put(sections)));
    EXPECT_EQ(keys.read(u"299999"_s, u"k"_s, path()), u"v"_s);

    const QByteArray open(5'000'000, '[');
    EXPECT_EQ(keys.read(u"["_s, u"k"_s, put("[s]\n" + open + "\nk=v")), QString());
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, path()), u"v"_s);
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, put("[s]\nk=" + QByteArray(5'000'000, '"'))),
              QString(IniText::kLongestValue, u'"'));
    EXPECT_EQ(keys.read(u"s"_s, u"k"_s, put("[s]\n" + QByteArray(5'000'000, '\r') + "k=v")),
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
