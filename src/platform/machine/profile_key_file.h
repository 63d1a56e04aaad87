#pragma once

#include "common/key_file.h"

#include <memory>

/// Key files on disk. On Windows the system's own profile functions, elsewhere the same rules over
/// IniText.
class ProfileKeyFile final : public KeyFile
{
public:
    ProfileKeyFile();
    ~ProfileKeyFile() override;
    ProfileKeyFile(const ProfileKeyFile &) = delete;
    ProfileKeyFile &operator=(const ProfileKeyFile &) = delete;

    QString read(const QString &section, const QString &key, const QString &file) override;
    bool write(const QString &section, const QString &key, const QString &value,
               const QString &file) override;
    bool rewrite(const QString &file, const std::vector<KeyEntry> &entries) override;

private:
    struct Files;
    std::unique_ptr<Files> m_files;
};
