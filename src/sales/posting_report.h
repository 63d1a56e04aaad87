#pragma once

#include "sales/posting.h"

/// What the shop is told of a posting that did not go through whole: shown, printed and saved.
struct PostingReport
{
    QString headline;
    QStringList lines; ///< one missing record each, the counters first
    QString advice;    ///< what to do about it
    QString text;      ///< all of it for paper and file, below the sale's moment and total

    /// The text, of everything else.
    QString paper(const Sale &sale) const;
};

PostingReport reportOf(const PostingResult &result, const Sale &sale);
