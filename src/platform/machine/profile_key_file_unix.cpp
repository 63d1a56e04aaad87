#include "common/ini_text.h"
#include "common/turkish.h"
#include "common/whole_file.h"
#include "platform/machine/profile_key_file.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <sys/stat.h>

namespace {

constexpr std::size_t kFilesKept = 8;
constexpr qint64 kNanosecondsPerSecond = 1'000'000'000;
/// Two changes within one tick of the file system's clock leave the same time on the file.
constexpr qint64 kClockTick = 20'000'000;

qint64 nanoseconds(const timespec &time)
{
    return static_cast<qint64>(time.tv_sec) * kNanosecondsPerSecond + time.tv_nsec;
}

/// What tells one state of a file from the next without reading it.
struct Stamp
{
    dev_t device = 0;
    ino_t inode = 0;
    qint64 size = 0;
    qint64 changed = 0; ///< nanoseconds since 1970

    friend bool operator==(const Stamp &, const Stamp &) = default;

    /// Whether a further change would show in the stamp.
    bool settled() const
    {
        timespec time{};
        clock_gettime(CLOCK_REALTIME, &time);
        const qint64 age = nanoseconds(time) - changed;
        return age < 0 || age > kClockTick;
    }
};

enum class Kind
{
    missing,
    keyFile,
    other
};

/// Only regular files of a sensible size are read: a pipe would wait forever, a device never end.
Kind look(const QString &path, Stamp *stamp)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return errno == ENOENT ? Kind::missing : Kind::other;
    if (!S_ISREG(status.st_mode) || status.st_size > IniText::kLargestText)
        return Kind::other;
    *stamp = {status.st_dev, status.st_ino, static_cast<qint64>(status.st_size),
              nanoseconds(status.st_mtim)};
    return Kind::keyFile;
}

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    return bytes.size() <= IniText::kLargestText && writeWholeFile(path, bytes);
}

} // namespace

/// The files read last, parsed. A layout is read key by key, thousands of times in a row.
struct ProfileKeyFile::Files
{
    struct Parsed
    {
        QString path;
        Stamp stamp;
        bool settled = false;
        IniText text;
    };

    /// Empty for a missing file, nothing for one that is no readable key file. The pointer holds
    /// until the next call.
    const IniText *find(const QString &path);

    std::vector<Parsed> parsed; ///< the newest last
    IniText empty;
};

const IniText *ProfileKeyFile::Files::find(const QString &path)
{
    Stamp stamp;
    const Kind kind = look(path, &stamp);
    const auto known =
        std::find_if(parsed.begin(), parsed.end(), [&](const Parsed &p) { return p.path == path; });
    if (known != parsed.end()) {
        if (kind == Kind::keyFile && known->settled && known->stamp == stamp)
            return &known->text;
        parsed.erase(known);
    }
    if (kind == Kind::missing)
        return &empty;
    QFile file(path);
    if (kind == Kind::other || !file.open(QIODevice::ReadOnly))
        return nullptr;
    const bool settled = stamp.settled();
    const QByteArray bytes = file.read(IniText::kLargestText + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > IniText::kLargestText)
        return nullptr;
    if (parsed.size() == kFilesKept)
        parsed.erase(parsed.begin());
    parsed.push_back({path, stamp, settled, IniText(bytes)});
    return &parsed.back().text;
}

ProfileKeyFile::ProfileKeyFile() : m_files(std::make_unique<Files>())
{}

ProfileKeyFile::~ProfileKeyFile() = default;

QString ProfileKeyFile::read(const QString &section, const QString &key, const QString &file)
{
    const IniText *const text = m_files->find(file);
    if (!text)
        return {};
    return turkish::fromCodePage1254(
        text->value(turkish::toCodePage1254(section), turkish::toCodePage1254(key)));
}

bool ProfileKeyFile::write(const QString &section, const QString &key, const QString &value,
                           const QString &file)
{
    const IniText *const text = m_files->find(file);
    if (!text)
        return false;
    IniText changed = *text;
    changed.setValue(turkish::toCodePage1254(section), turkish::toCodePage1254(key),
                     turkish::toCodePage1254(value));
    return changed.bytes() == text->bytes() || replaceFile(file, changed.bytes());
}

bool ProfileKeyFile::rewrite(const QString &file, const std::vector<KeyEntry> &entries)
{
    Stamp stamp;
    return look(file, &stamp) != Kind::other && replaceFile(file, composeKeyFile(entries));
}
