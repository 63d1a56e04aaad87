#pragma once

#include <QStringList>

#include <functional>

struct SplitText
{
    QStringList lines;
    bool complete = true; ///< false: some of the text did not go into the lines
};

/// Where a line may end.
enum class Breaking
{
    words,   ///< between words, and at the line ends of the text
    lineEnds ///< at the line ends of the text only
};

/// Whether a text stands on one line as it is, if that has room for it.
bool isOneLine(QStringView text);

/// Splits a text into at most `most` lines (1 or more) for which `fits` says yes; without `fits`
/// any line does. Of a text that is too long for them words of the middle give way to "…": its end,
/// where the size of a pack stands, is kept. A word too long for a line is broken, except on the
/// last line: nothing may be cut off inside a figure, a price least of all, so there it runs over.
SplitText splitLines(const QString &text, qsizetype most, Breaking breaking,
                     const std::function<bool(QStringView)> &fits);
