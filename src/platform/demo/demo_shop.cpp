#include "platform/demo/demo_shop.h"

#include "common/host_connection.h"
#include "common/host_error.h"
#include "platform/host/embedded_file.h"

#include <QFile>
#include <QUuid>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A database file on its way to its place; when it does not get there, nothing stays of it.
class NewFile
{
public:
    explicit NewFile(const QString &path)
        : m_path(path),
          m_beside(u"%1.%2.yeni"_s.arg(path, QUuid::createUuid().toString(QUuid::Id128)))
    {}
    ~NewFile() { QFile::remove(m_beside); }
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    const QString &beside() const { return m_beside; }

    /// Another program may have put the file there meanwhile: then that one stays.
    void moveIntoPlace() const
    {
        if (!QFile::rename(m_beside, m_path) && !QFile::exists(m_path))
            throw HostError(HostError::kConnectionLost,
                            u"Örnek veritabanı yazılamadı: %1"_s.arg(m_path));
    }

private:
    QString m_path;
    QString m_beside;
};

} // namespace

bool createDemoShop(const QString &directory, QDate today, const QString &text)
{
    struct Part
    {
        QStringView database;
        QString folder;
    };
    const std::vector<Part> parts = {{kDemoMaster, text + u"/ana"_s},
                                     {kDemoCompany, text + u"/sirket"_s}};
    std::vector<std::unique_ptr<NewFile>> files;
    for (const Part &part : parts) {
        const QString path = u"%1/%2.yerel"_s.arg(directory, part.database);
        if (QFile::exists(path))
            continue;
        files.push_back(std::make_unique<NewFile>(path));
        writeEmbeddedFile(files.back()->beside(), demo::readFolder(part.folder), today);
    }
    for (const auto &file : files)
        file->moveIntoPlace();
    return !files.empty();
}
