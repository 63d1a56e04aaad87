#include "platform/machine/system_clock.h"

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}
