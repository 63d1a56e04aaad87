#pragma once

#include <QDateTime>

/// Today and now, as the ledger and the receipt take them.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;
};
