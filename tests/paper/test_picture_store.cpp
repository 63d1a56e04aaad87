#include "paper/picture_store.h"
#include "support/files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PictureStoreTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(directory.path()).mkpath(u"pic/folder.png"_s));
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(path(u"pic/logo.png"_s)));
        ASSERT_TRUE(image.save(path(u"outside.png"_s)));
        ASSERT_TRUE(QFile::copy(path(u"pic/logo.png"_s), path(u"pic/png named.bmp"_s)));
    }
    QString path(const QString &name) const { return directory.filePath(name); }

    QTemporaryDir directory;
    PictureStore store{directory.filePath(u"pic"_s)};
};

} // namespace

TEST_F(PictureStoreTest, ReadsNoFinerThanThePrinterShows)
{
    EXPECT_EQ(store.find(u"logo.png"_s, {50, 80}).size(), QSize(50, 80));
    EXPECT_EQ(store.find(u"logo.png"_s, {400, 400}).size(), QSize(200, 100));
    EXPECT_EQ(store.find(u"png named.bmp"_s, {50, 50}).size(), QSize(50, 50));
}

TEST_F(PictureStoreTest, NamesStayInsideTheFolder)
{
    for (const QString &name :
         {u"../outside.png"_s, u"..\\outside.png"_s, path(u"outside.png"_s), u"."_s, u".."_s, u""_s,
          u"folder.png"_s, u"missing.png"_s, u"C:logo.png"_s, u":/logo.png"_s})
        EXPECT_TRUE(store.find(name, {50, 50}).isNull()) << name.toStdString();
}

TEST_F(PictureStoreTest, DamagedAndHostileFilesShowNothing)
{
    const QByteArray png = readFile(path(u"pic/logo.png"_s));
    writeFile(path(u"pic/cut.png"_s), png.first(20));
    QImage photograph(64, 64, QImage::Format_RGB32);
    photograph.fill(Qt::green);
    ASSERT_TRUE(photograph.save(path(u"pic/whole.jpg"_s)));
    EXPECT_FALSE(store.find(u"whole.jpg"_s, {50, 50}).isNull());
    const QByteArray jpeg = readFile(path(u"pic/whole.jpg"_s));
    writeFile(path(u"pic/half.jpg"_s), jpeg.first(jpeg.size() - 20));
    writeFile(path(u"pic/text.png"_s), "this is no picture");
    writeFile(path(u"pic/empty.png"_s), "");
    writeFile(path(u"pic/huge.ppm"_s), "P6 2000000000 2000000000 255\n");
    writeFile(path(u"pic/large.bmp"_s),
              QByteArray("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xff\xff\0\0\xff\xff"
                         "\0\0\1\0\x18\0",
                         30) +
                  QByteArray(24, '\0'));
    QImage wide(10'000, 5'000, QImage::Format_Mono); // few bytes, but too many dots
    wide.fill(0);
    ASSERT_TRUE(wide.save(path(u"pic/wide.png"_s)));
    for (const QString &name : {u"cut.png"_s, u"half.jpg"_s, u"text.png"_s, u"empty.png"_s,
                                u"huge.ppm"_s, u"large.bmp"_s, u"wide.png"_s})
        EXPECT_TRUE(store.find(name, {50, 50}).isNull()) << name.toStdString();
}
