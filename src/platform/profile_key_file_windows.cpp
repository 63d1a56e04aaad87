#include "common/ini_text.h"
#include "common/turkish.h"
#include "platform/profile_key_file.h"
#include "platform/whole_file.h"

#include <QDir>
#include <QFileInfo>
#include <qt_windows.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The path in the code page of the system, which the profile functions take; "" when it cannot be
/// said in it.
QByteArray inSystemCodePage(const std::wstring &path)
{
    QByteArray bytes(static_cast<qsizetype>(path.size() * 4 + 1), '\0');
    BOOL lost = FALSE;
    const int size =
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, &lost);
    return size > 0 && !lost ? bytes.left(size - 1) : QByteArray();
}

/// Longer than any value that is read, so that the quotes around a long one are seen.
constexpr std::size_t kBuffer = 1024;

/// A user whose name the system's code page lacks has folders with short names beside.
QByteArray profilePath(const QString &file)
{
    const std::wstring path = QDir::toNativeSeparators(file).toStdWString();
    const QByteArray bytes = inSystemCodePage(path);
    if (!bytes.isEmpty())
        return bytes;
    std::array<wchar_t, MAX_PATH> brief{};
    const DWORD size = GetShortPathNameW(path.c_str(), brief.data(), brief.size());
    return size > 0 && size < brief.size() ? inSystemCodePage(brief.data()) : QByteArray();
}

/// Only files of a sensible size are read, and none by a name alone: the profile functions would
/// look for it in the folder of Windows.
bool mayBeKeyFile(const QString &file)
{
    const QFileInfo info(file);
    return !file.isEmpty() && info.isAbsolute() &&
           (!info.exists() || (info.isFile() && info.size() <= IniText::kLargestText));
}

bool takePlaceOf(const QString &file, const QString &changed)
{
    return MoveFileExW(QDir::toNativeSeparators(changed).toStdWString().c_str(),
                       QDir::toNativeSeparators(file).toStdWString().c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace

/// The system keeps what it needs.
struct ProfileKeyFile::Files
{};

ProfileKeyFile::ProfileKeyFile() = default;

ProfileKeyFile::~ProfileKeyFile() = default;

QString ProfileKeyFile::read(const QString &section, const QString &key, const QString &file)
{
    // Versions of the system differ in what a section without a name and a commented key hold.
    if (!mayBeKeyFile(file) || section.trimmed().isEmpty() || key.trimmed().startsWith(u';'))
        return {};
    std::array<char, kBuffer> value{};
    const DWORD size = GetPrivateProfileStringA(
        turkish::toCodePage1254(section).constData(), turkish::toCodePage1254(key).constData(), "",
        value.data(), value.size(), profilePath(file).constData());
    return turkish::fromCodePage1254(
        {value.data(), std::min<qsizetype>(size, IniText::kLongestValue)});
}

/// The function writes into the file itself; it gets a copy, so that a full disk or a power cut
/// leaves the file as it was.
bool ProfileKeyFile::write(const QString &section, const QString &key, const QString &value,
                           const QString &file)
{
    const QString changed = file + u".yeni"_s;
    if (!mayBeKeyFile(file) || (QFile::exists(changed) && !QFile::remove(changed)))
        return false;
    const bool copied =
        QFile::exists(file) ? QFile::copy(file, changed) : writeWholeFile(changed, {});
    const bool written = copied && WritePrivateProfileStringA(
                                       writtenName(turkish::toCodePage1254(section)).constData(),
                                       writtenName(turkish::toCodePage1254(key)).constData(),
                                       writtenValue(turkish::toCodePage1254(value)).constData(),
                                       profilePath(changed).constData()) != 0;
    if (written && takePlaceOf(file, changed))
        return true;
    QFile::remove(changed);
    return false;
}

bool ProfileKeyFile::rewrite(const QString &file, const std::vector<KeyEntry> &entries)
{
    const QByteArray bytes = composeKeyFile(entries);
    return mayBeKeyFile(file) && bytes.size() <= IniText::kLargestText &&
           writeWholeFile(file, bytes);
}
