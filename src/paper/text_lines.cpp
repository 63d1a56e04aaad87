#include "paper/text_lines.h"

using namespace Qt::StringLiterals;

namespace {

/// Longest run of whole words from the start that fits; 0 when not even the first word does.
qsizetype wholeWords(QStringView text, const std::function<bool(QStringView)> &fits)
{
    qsizetype cut = 0;
    for (qsizetype blank = text.indexOf(u' ', 1); blank > 0;
         blank = text.indexOf(u' ', blank + 1)) {
        if (!fits(text.first(blank)))
            break;
        cut = blank;
    }
    return cut;
}

/// As many characters as fit, at least one.
qsizetype wordPart(QStringView text, const std::function<bool(QStringView)> &fits)
{
    qsizetype cut = 1;
    while (cut < text.size() && fits(text.first(cut + 1)))
        ++cut;
    if (cut < text.size() && text.at(cut).isLowSurrogate())
        ++cut;
    return cut;
}

qsizetype firstWord(QStringView text)
{
    const qsizetype blank = text.indexOf(u' ', 1);
    return blank < 0 ? text.size() : blank;
}

/// False when not all of the text went into the lines.
bool wrap(QStringView text, qsizetype most, const std::function<bool(QStringView)> &fits,
          QStringList &lines)
{
    while (lines.size() < most) {
        if (fits(text)) {
            lines += text.toString();
            return true;
        }
        qsizetype cut = wholeWords(text, fits);
        if (cut == 0)
            cut = lines.size() + 1 == most ? firstWord(text) : wordPart(text, fits);
        lines += text.first(cut).toString();
        text = text.sliced(cut).trimmed();
        if (text.isEmpty())
            return true;
    }
    return false;
}

} // namespace

SplitText splitLines(const QString &text, qsizetype most,
                     const std::function<bool(QStringView)> &fits)
{
    QString unified = text;
    unified.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u' ');

    SplitText split;
    for (const QString &paragraph : unified.split(u'\n')) {
        if (split.lines.size() >= most) {
            split.complete = split.complete && paragraph.isEmpty();
            continue;
        }
        if (fits)
            split.complete = wrap(paragraph, most, fits, split.lines) && split.complete;
        else
            split.lines += paragraph;
    }
    return split;
}
