#include "platform/machine/private_file.h"

#include <QDir>
#include <QFile>
#include <qt_windows.h>

#include <aclapi.h>
#include <sddl.h>

using namespace Qt::StringLiterals;

bool makePrivate(const QString &path)
{
    if (QFile file(path); !file.exists() && !file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    // All rights for the owner, the system and the administrators; none from the folder.
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:P(A;;FA;;;OW)(A;;FA;;;SY)(A;;FA;;;BA)", SDDL_REVISION_1, &descriptor, nullptr))
        return false;
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    PACL rights = nullptr;
    GetSecurityDescriptorDacl(descriptor, &present, &rights, &defaulted);
    std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    const DWORD error =
        SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                              DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                              nullptr, nullptr, rights, nullptr);
    LocalFree(descriptor);
    return error == ERROR_SUCCESS;
}

/// A file that is made anew has the rights of its folder here.
bool keepsPrivateJournal(const QString &database)
{
    return makePrivate(database + u"-journal"_s);
}
