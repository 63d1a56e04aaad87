#pragma once

#include <QString>

#include <vector>

/// One key of a key file.
struct KeyEntry
{
    QString section;
    QString key;
    QString value;
};

/// Key files in the private-profile form of Windows (code page 1254, CR LF): label layouts, the
/// default layout, list column widths. Every reader and writer of such files goes through here.
/// Files are named by their full path. The rules of the text are told in common/ini_text.h.
class KeyFile
{
public:
    virtual ~KeyFile() = default;

    /// The value of a key, at most 254 characters of it; "" for anything missing or unreadable.
    /// Names compare without regard to case; blanks and one pair of quotes around the value are
    /// taken off.
    virtual QString read(const QString &section, const QString &key, const QString &file) = 0;

    /// Replaces the key in place, appends it to its section, or appends the section to the file.
    /// Comments and unknown lines stay; line ends and NUL inside a value become blanks. Returns
    /// false when the file could not be written; it is then as it was.
    virtual bool write(const QString &section, const QString &key, const QString &value,
                       const QString &file) = 0;

    /// Replaces the whole file by one empty line followed by the entries written in their order.
    /// The file is written whole or not at all. Returns false when it could not be written.
    virtual bool rewrite(const QString &file, const std::vector<KeyEntry> &entries) = 0;
};
