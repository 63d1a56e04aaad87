#include "platform/machine/process_locale.h"

#include <clocale>

void useProgramLocale()
{
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8"); // not on Windows, which is in its "C" from the start
}
