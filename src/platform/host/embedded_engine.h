#pragma once

#include "common/host_connection.h"
#include "platform/host/sqlite_file.h"

#include <chrono>

/// A host database in a file of the working folder, answering as the server would: Turkish order
/// and search without regard to case, day.month.year dates that compare as dates, numbers with
/// their type, duplicate keys refused. Several programs may use one file at the same time.
class EmbeddedEngine final : public HostConnection
{
public:
    /// Opens the file NAME.yerel of the folder, letters of the name in any case. `limit`: how long
    /// a statement may take. Throws HostError kConnectionLost.
    EmbeddedEngine(const QString &directory, const QString &database,
                   std::chrono::milliseconds limit = std::chrono::seconds(5));

    /// Always open: a statement that fails leaves the file as it is.
    int state() const override { return 1; }
    QString driver() const override;
    RecordSet execute(const QString &statement) override;

private:
    SqliteFile m_file;
};
