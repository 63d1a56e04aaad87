#include "labels/designer/picture_folder.h"

#include "common/amount.h"
#include "common/turkish.h"
#include "labels/layout/label_layout.h"
#include "paper/picture_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostPixels = 40'000'000; ///< of a picture that is drawn
constexpr qint64 kMostBytes = 64LL << 20;
constexpr double kMillion = 1e6;
constexpr int kLongestName = 100;

PictureFacts factsOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return {{}, u"Resim dosyası bulunamadı."_s};
    if (info.size() > kMostBytes)
        return {{}, u"Dosya 64 MB'tan büyük; basılmaz."_s};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid() || isCutOff(path))
        return {{}, u"Dosya bozuk ya da resim değil."_s};
    const qint64 pixels = size.width() * qint64(size.height());
    if (pixels > kMostPixels)
        return {size, u"Resim çok büyük: %1 megapiksel (en çok 40). Küçültüp yeniden alın."_s.arg(
                          amount::plain(std::round(static_cast<double>(pixels) / kMillion)))};
    return {size, {}};
}

/// A name every layout file and system can hold.
QString usableName(const QString &name)
{
    QString usable;
    for (const QChar c : name) {
        const bool kept = turkish::fromCodePage1254(turkish::toCodePage1254(QString(c))) == c;
        const bool plain = c.unicode() >= 0x20 && !QStringView(u"\\/:*?\"<>|=;").contains(c);
        usable += kept && plain ? c : QChar(u'_');
    }
    return usable.right(kLongestName).trimmed();
}

bool sameBytes(const QString &a, const QString &b)
{
    QFile first(a);
    QFile second(b);
    return first.size() == second.size() && first.open(QIODevice::ReadOnly) &&
           second.open(QIODevice::ReadOnly) && first.readAll() == second.readAll();
}

} // namespace

QString PictureFolder::path() const
{
    return pictureFolder(m_directory);
}

QStringList PictureFolder::names() const
{
    return QDir(path()).entryList({u"*.png"_s, u"*.jpg"_s, u"*.jpeg"_s, u"*.bmp"_s, u"*.gif"_s},
                                  QDir::Files, QDir::Name | QDir::LocaleAware);
}

PictureFacts PictureFolder::facts(const QString &file) const
{
    return factsOf(path() + u'/' + file);
}

QImage PictureFolder::preview(const QString &file, QSize most) const
{
    if (!facts(file).problem.isEmpty())
        return {};
    QImageReader reader(path() + u'/' + file);
    reader.setDecideFormatFromContent(true);
    reader.setScaledSize(reader.size().scaled(most, Qt::KeepAspectRatio));
    return reader.read();
}

QString PictureFolder::bringIn(const QString &from)
{
    const PictureFacts found = factsOf(from);
    if (!found.problem.isEmpty()) {
        m_prompt.warn(u"%1\n%2"_s.arg(QFileInfo(from).fileName(), found.problem), true);
        return {};
    }
    const QFileInfo info(from);
    if (info.canonicalPath() == QFileInfo(path()).canonicalFilePath())
        return info.fileName();
    if (!m_prompt.confirm(
            u"Resim tasarımların resim klasöründe değil:\n%1\n\nKlasöre kopyalansın mı?"_s.arg(
                QDir::toNativeSeparators(from))))
        return {};
    QString name = copyIn(from);
    if (name.isEmpty())
        m_prompt.warn(u"Resim kopyalanamadı:\n%1"_s.arg(QDir::toNativeSeparators(path())), true);
    return name;
}

/// A picture of that name that is there already stays; the new one gets a number.
QString PictureFolder::copyIn(const QString &from)
{
    QDir().mkpath(path());
    const QFileInfo wanted(usableName(QFileInfo(from).fileName()));
    for (int number = 1; number < 1000; ++number) {
        QString name =
            number == 1
                ? wanted.fileName()
                : u"%1 (%2).%3"_s.arg(wanted.completeBaseName()).arg(number).arg(wanted.suffix());
        const QString to = path() + u'/' + name;
        if (!QFile::exists(to))
            return QFile::copy(from, to) ? name : QString();
        if (sameBytes(from, to))
            return name;
    }
    return {};
}
