#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// Codes with their counts, as hand terminals and spreadsheets hand them over.
namespace count_file {

/// One line: the code of a stock or one of its barcodes, and how many labels.
struct Line
{
    int number = 0; ///< of the line in its file, from 1
    QString code;
    int count = 1;

    friend bool operator==(const Line &, const Line &) = default;
};

/// A line that nothing came of, and why, in words.
struct Problem
{
    int number = 0;
    QString reason;
};

struct Content
{
    std::vector<Line> lines;
    std::vector<Problem> problems;
};

/// Reads "code;count"; a line without a count is one label. A first line of captions is passed
/// over.
Content read(const QByteArray &bytes);

/// The problems in words, one a line, in the order of the file.
QString report(std::vector<Problem> problems);

} // namespace count_file
