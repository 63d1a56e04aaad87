#pragma once

#include "common/ini_text.h"
#include "common/turkish.h"

#include <QHash>

/// Key files in memory by the rules of those on disk. What is written can be looked at byte by
/// byte.
class IniKeyFile final : public KeyFile
{
public:
    QString read(const QString &section, const QString &key, const QString &file) override
    {
        const auto found = files.constFind(file);
        if (found == files.cend())
            return {};
        return turkish::fromCodePage1254(
            found->value(turkish::toCodePage1254(section), turkish::toCodePage1254(key)));
    }

    bool write(const QString &section, const QString &key, const QString &value,
               const QString &file) override
    {
        files[file].setValue(turkish::toCodePage1254(section), turkish::toCodePage1254(key),
                             turkish::toCodePage1254(value));
        return true;
    }

    bool rewrite(const QString &file, const std::vector<KeyEntry> &entries) override
    {
        files[file] = IniText(composeKeyFile(entries));
        return true;
    }

    QHash<QString, IniText> files;
};
