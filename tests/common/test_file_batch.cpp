#include "common/file_batch.h"
#include "support/files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kLast = u"last";

struct Batches : testing::Test
{
    QString path(const QString &name) const { return folder.filePath(name); }
    QStringList names() const
    {
        return QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    }

    QTemporaryDir folder;
};

} // namespace

/// A power cut leaves the folder as it was, or the next start finishes the rest.
TEST_F(Batches, AreThereWholeOrNotAtAllWhenThePowerFails)
{
    writeFile(path(u"last"_s), "old");
    QDir(folder.path()).mkpath(u"kurulum.yeni/ayar"_s);
    writeFile(path(u"kurulum.yeni/ayar/a"_s), "new");
    FileBatch::finish(folder.path(), kLast);
    EXPECT_EQ(names(), QStringList{u"last"_s});

    // Decided, and cut when the first file had been moved.
    QDir(folder.path()).mkpath(u"kurulum.hazir/ayar/pic"_s);
    writeFile(path(u"first"_s), "new");
    writeFile(path(u"kurulum.hazir/ayar/pic/b"_s), "new");
    writeFile(path(u"kurulum.hazir/last"_s), "new");
    FileBatch::finish(folder.path(), kLast);
    EXPECT_EQ(names(), (QStringList{u"ayar"_s, u"first"_s, u"last"_s}));
    EXPECT_EQ(readFile(path(u"ayar/pic/b"_s)) + readFile(path(u"last"_s)), "newnew");
}

TEST_F(Batches, ThatCannotBeWrittenChangeNothing)
{
    writeFile(path(u"last"_s), "old");
    {
        FileBatch batch(folder.path(), kLast);
        batch.take(path(u"last"_s), u"copy"_s);
        EXPECT_THROW(batch.take(path(u"missing"_s), u"copy"_s), std::runtime_error);
    }
    EXPECT_EQ(names(), QStringList{u"last"_s});
    writeFile(path(u"kurulum.yeni"_s), "in the way");
    EXPECT_THROW(FileBatch(folder.path(), kLast), std::runtime_error);
    EXPECT_EQ(readFile(path(u"last"_s)), "old");
}
