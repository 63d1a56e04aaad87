#include "common/ini_text.h"
#include "common/turkish.h"
#include "common/whole_file.h"
#include "platform/machine/profile_key_file.h"

#include <QDir>
#include <QFileInfo>
#include <qt_windows.h>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Longer than any value that is read, so that the quotes around a long one are seen.
constexpr std::size_t kBuffer = 1024;

/// The path in the code page of the system, which the profile functions take; "" when it cannot be
/// said in it, or when the code page is UTF-8: there the functions would not know the letters of
/// the file's text. Such files are read and written as on other systems.
QByteArray profilePath(const QString &file)
{
    if (GetACP() == CP_UTF8)
        return {};
    const std::wstring path = QDir::toNativeSeparators(file).toStdWString();
    QByteArray bytes(static_cast<qsizetype>(path.size() * 4 + 1), '\0');
    BOOL lost = FALSE;
    const int size =
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, &lost);
    return size > 0 && !lost ? bytes.left(size - 1) : QByteArray();
}

/// Only files of a sensible size are read, and none by a name alone: the profile functions would
/// look for it in the folder of Windows.
bool mayBeKeyFile(const QString &file)
{
    const QFileInfo info(file);
    return !file.isEmpty() && info.isAbsolute() &&
           (!info.exists() || (info.isFile() && info.size() <= IniText::kLargestText));
}

/// Guards against viruses and the copying into the cloud hold a fresh file for a moment.
bool takePlaceOf(const QString &file, const QString &changed)
{
    constexpr int kTries = 5;
    const std::wstring from = QDir::toNativeSeparators(changed).toStdWString();
    const std::wstring to = QDir::toNativeSeparators(file).toStdWString();
    for (int i = 0; i < kTries; ++i) {
        if (MoveFileExW(from.c_str(), to.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return true;
        const DWORD error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED)
            return false;
        Sleep(50);
    }
    return false;
}

/// For files the profile functions cannot be asked for. Nothing: it cannot be read.
std::optional<IniText> readText(const QString &file)
{
    QFile text(file);
    if (!text.exists())
        return IniText();
    if (!text.open(QIODevice::ReadOnly))
        return {};
    return IniText(text.read(IniText::kLargestText));
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
    const QByteArray sectionName = turkish::toCodePage1254(section);
    const QByteArray keyName = turkish::toCodePage1254(key);
    const QByteArray path = profilePath(file);
    if (path.isEmpty()) {
        const auto text = readText(file);
        return text ? turkish::fromCodePage1254(text->value(sectionName, keyName)) : QString();
    }
    std::array<char, kBuffer> value{};
    const DWORD size = GetPrivateProfileStringA(sectionName.constData(), keyName.constData(), "",
                                                value.data(), value.size(), path.constData());
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
    const QByteArray sectionName = writtenName(turkish::toCodePage1254(section));
    const QByteArray keyName = writtenName(turkish::toCodePage1254(key));
    const QByteArray valueText = writtenValue(turkish::toCodePage1254(value));
    const QByteArray path = profilePath(changed);
    if (path.isEmpty()) {
        auto text = readText(file);
        if (!text)
            return false;
        text->setValue(sectionName, keyName, valueText);
        return writeWholeFile(file, text->bytes());
    }
    const bool copied =
        QFile::exists(file) ? QFile::copy(file, changed) : writeWholeFile(changed, {});
    const bool written =
        copied && WritePrivateProfileStringA(sectionName.constData(), keyName.constData(),
                                             valueText.constData(), path.constData()) != 0;
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
