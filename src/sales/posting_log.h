#pragma once

#include "sales/ledger_sale.h"

struct PostingResult;

/// What became of a writing statement.
enum class Sent
{
    waiting, ///< sent, no answer yet
    done,
    refused, ///< changed nothing
    unknown, ///< the answer was lost
    withheld ///< not sent: what it needs could not be read, or no server was there
};

/// Hears how a posting goes: before its first statement, before and after each that writes, and at
/// its end. This one keeps nothing.
class PostingLog
{
public:
    virtual ~PostingLog() = default;

    virtual void begun(const Sale &, const ledger::LedgerSale &) {}
    virtual void drawn(const ledger::LedgerSale &) {} ///< a number or a reference more
    /// `from`: the figure that stood in the ledger, for a record that adds to one.
    virtual void sending(const ledger::Record &, const QString & /*statement*/,
                         std::optional<double> /*from*/)
    {}
    /// `words`: why not, as the server put it.
    virtual void answered(const ledger::Record &, Sent, const QString & /*words*/) {}
    virtual void ended(const PostingResult &) {}
};
