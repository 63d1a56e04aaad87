#pragma once

#include <QStringList>

#include <functional>

struct SplitText
{
    QStringList lines;
    bool complete = true; ///< false: some of the text did not go into the lines
};

/// Splits a text at its line ends and, when `fits` is given, between words so that each line fits.
/// A word too long for a line is broken, except on the last line: nothing may be cut off inside a
/// word, a price least of all, so there it runs over. At most `most` lines (1 or more) come back;
/// what does not go into them is dropped.
SplitText splitLines(const QString &text, qsizetype most,
                     const std::function<bool(QStringView)> &fits);
