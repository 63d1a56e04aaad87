#include "paper/text_lines.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Fits = std::function<bool(QStringView)>;

/// Longest run of whole words from the start that fits; 0 when not even the first word does.
qsizetype wholeWords(QStringView text, const Fits &fits)
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
qsizetype wordPart(QStringView text, const Fits &fits)
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

bool hasDigit(QStringView word)
{
    return std::any_of(word.cbegin(), word.cend(), [](QChar c) { return c.isDigit(); });
}

/// Words at the end that are kept together: the size of a pack ("500 g", "6 x 200 ml") or, where a
/// name ends in none, its last word. At least one, never all of them.
qsizetype tailWords(const QStringList &words)
{
    constexpr qsizetype longest = 4;
    const qsizetype most = std::min(longest, words.size() - 1);
    qsizetype tail = 1;
    for (qsizetype i = 1; i <= most; ++i)
        if (hasDigit(words[words.size() - i]))
            tail = i;
    return tail;
}

/// The greatest number from 1 to `most` for which `good` says yes, 0 when there is none; what is
/// good stays so for smaller numbers.
template <typename Good>
qsizetype greatest(qsizetype most, Good good)
{
    qsizetype least = 0;
    while (least < most) {
        const qsizetype middle = (least + most + 1) / 2;
        if (good(middle))
            least = middle;
        else
            most = middle - 1;
    }
    return least;
}

/// The text without words of its middle, as many of them as must go for it to be taken; "" when
/// even a single letter before its end is too much.
QString withoutMiddle(const QString &text, const Fits &taken)
{
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 2)
        return {};
    const qsizetype tail = tailWords(words);
    const QString end = words.last(tail).join(QChar::Nbsp); // no line ends inside
    const auto heading = [&](qsizetype count) {
        return words.first(count).join(u' ') + u" … "_s + end;
    };
    const qsizetype kept =
        greatest(words.size() - tail - 1, [&](qsizetype count) { return taken(heading(count)); });
    if (kept > 0)
        return heading(kept);
    const auto letters = [&](qsizetype count) { return words[0].left(count) + u"… "_s + end; };
    const qsizetype left =
        greatest(words[0].size(), [&](qsizetype count) { return taken(letters(count)); });
    return left > 0 ? letters(left) : QString();
}

/// One paragraph, its middle shortened where it must be.
bool placeParagraph(const QString &text, qsizetype most, Breaking breaking, const Fits &fits,
                    QStringList &lines)
{
    const auto place = [&](const QString &part, QStringList &into) {
        if (breaking == Breaking::words)
            return wrap(part, most, fits, into);
        into += part;
        return fits(part);
    };
    QStringList whole = lines;
    if (place(text, whole)) {
        lines = whole;
        return true;
    }
    const QString shorter = withoutMiddle(text, [&](QStringView part) {
        QStringList tried = lines;
        return place(part.toString(), tried) && fits(tried.constLast());
    });
    if (shorter.isEmpty())
        lines = whole;
    else
        place(shorter, lines);
    lines.replaceInStrings(QString(QChar::Nbsp), u" "_s);
    return false;
}

} // namespace

bool isOneLine(QStringView text)
{
    return std::none_of(text.cbegin(), text.cend(),
                        [](QChar c) { return c == u'\n' || c == u'\r' || c == u'\t'; });
}

SplitText splitLines(const QString &text, qsizetype most, Breaking breaking, const Fits &fits)
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
            split.complete =
                placeParagraph(paragraph, most, breaking, fits, split.lines) && split.complete;
        else
            split.lines += paragraph;
    }
    return split;
}
