#include "paper/picture_store.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostPixels = 40'000'000; ///< of a picture file; more is no label picture
constexpr int kMostDecoded = 320;          ///< megabytes: as many pixels of eight bytes
constexpr qint64 kMostBytes = 64LL << 20;  ///< of a picture file
constexpr qint64 kMostHeld = 256LL << 20;  ///< bytes of all pictures of a run together

bool isBareName(const QString &file)
{
    const auto leadsOut = [](QChar c) {
        return c == u'/' || c == u'\\' || c == u':' || c.unicode() < 0x20;
    };
    return std::none_of(file.cbegin(), file.cend(), leadsOut); // folders are no files
}

} // namespace

bool isCutOff(const QString &path)
{
    constexpr qint64 tail = 64LL << 10; // cameras write notes of their own behind the picture
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.read(2) != "\xFF\xD8")
        return false;
    file.seek(std::max<qint64>(file.size() - tail, 0));
    return !file.readAll().contains("\xFF\xD9");
}

const QImage &PictureStore::find(const QString &file, QSize dots)
{
    const auto key = std::pair(file, std::pair(dots.width(), dots.height()));
    const auto known = m_images.find(key);
    if (known != m_images.end())
        return known->second;
    const QImage &image =
        m_images.emplace(key, m_bytes < kMostHeld ? read(file, dots) : QImage()).first->second;
    m_bytes += image.sizeInBytes();
    return image;
}

QImage PictureStore::read(const QString &file, QSize dots) const
{
    const QFileInfo info(m_folder + u'/' + file);
    if (!isBareName(file) || !info.isFile() || info.size() > kMostBytes ||
        isCutOff(info.filePath()))
        return {};

    // Qt refuses pictures above 128 MB on its own; a photograph of a telephone is larger.
    QImageReader::setAllocationLimit(kMostDecoded);
    // The content decides the format: pictures are renamed by hand more often than one thinks.
    QImageReader reader(info.filePath());
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!size.isValid() || size.width() * qint64(size.height()) > kMostPixels)
        return {};
    QImage image = reader.read();
    if (image.isNull() || (image.width() <= dots.width() && image.height() <= dots.height()))
        return image;
    return image.scaled(dots.boundedTo(image.size()), Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
}
