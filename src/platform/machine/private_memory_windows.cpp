#include "platform/machine/private_memory.h"

#include <qt_windows.h>

/// Of werapi.h, which does not compile with MinGW.
extern "C" HRESULT WINAPI WerSetFlags(DWORD flags);

void keepMemoryPrivate()
{
    constexpr DWORD noHeap = 1;
    WerSetFlags(noHeap);
}
