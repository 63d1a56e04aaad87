#include "platform/machine/private_memory.h"

#include <QFile>

/// Also holds for crash reporters that the system hands the memory to, which a limit of the size of
/// such files does not.
void keepMemoryPrivate()
{
    QFile filter(QStringLiteral("/proc/self/coredump_filter"));
    if (filter.open(QIODevice::WriteOnly))
        filter.write("0x10"); // the heads of program files alone
}
