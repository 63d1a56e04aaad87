#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <map>
#include <utility>

/// Whether a JPEG file ends before its picture does, as after a broken copy: what is missing would
/// be read as grey.
bool isCutOff(const QString &path);

/// The pictures of one run, each read once. They are bare file names inside one folder; names that
/// lead out of it, and files that are missing, damaged or far too large, give an empty picture.
class PictureStore
{
public:
    /// `folder`: absolute path of the pictures.
    explicit PictureStore(const QString &folder) : m_folder(folder) {}

    /// The picture, no finer than `dots` can show.
    const QImage &find(const QString &file, QSize dots);

private:
    QImage read(const QString &file, QSize dots) const;

    QString m_folder;
    qint64 m_bytes = 0; ///< held by m_images
    std::map<std::pair<QString, std::pair<int, int>>, QImage> m_images;
};
