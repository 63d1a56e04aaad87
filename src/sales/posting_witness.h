#pragma once

#include "sales/posting_log.h"

/// What stands beside the till's postings: is asked before one begins, hears how it goes, and what
/// number its receipt bears. This one lets everything pass.
class PostingWitness : public PostingLog
{
public:
    /// False: something else has to be done first, and the cashier was told.
    virtual bool mayBegin(int /*list*/) { return true; }
    virtual void numbered(const QString & /*receipt*/) {}
};
