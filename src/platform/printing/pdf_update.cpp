#include "platform/printing/pdf_update.h"

namespace {

constexpr qsizetype kEntrySize = 20; ///< bytes of one line of a cross-reference table

/// The trimmed text between `before` and the next `after`, searching on from `at`; null when
/// missing.
QByteArray between(const QByteArray &text, const QByteArray &before, const QByteArray &after,
                   qsizetype at)
{
    const qsizetype found = text.indexOf(before, at);
    if (found < 0)
        return {};
    const qsizetype start = found + before.size();
    const qsizetype end = text.indexOf(after, start);
    return end < 0 ? QByteArray() : text.mid(start, end - start).trimmed();
}

/// Where an object starts, by the one table of a file that was never updated; −1 when it is not
/// listed.
qsizetype objectPosition(const QByteArray &pdf, qsizetype tableAt, qsizetype number)
{
    const qsizetype headAt = pdf.indexOf("\n0 ", tableAt);
    const qsizetype firstAt = pdf.indexOf('\n', headAt + 1) + 1;
    if (headAt < 0 || firstAt <= 0 || number < 0 || number >= pdf.size() / kEntrySize)
        return -1;
    bool isNumber = false;
    const qsizetype at = pdf.mid(firstAt + number * kEntrySize, 10).toLongLong(&isNumber);
    return isNumber ? at : -1;
}

} // namespace

QByteArray noPrintScaling(const QByteArray &pdf)
{
    const qsizetype trailerAt = pdf.lastIndexOf("trailer");
    if (trailerAt < 0)
        return {};
    const QByteArray trailer = between(pdf, "<<", ">>", trailerAt);
    const QByteArray tableBefore = between(pdf, "startxref", "%%EOF", trailerAt);
    const QByteArray root = between(trailer, "/Root ", " 0 R", 0);
    const qsizetype catalogAt = objectPosition(pdf, tableBefore.toLongLong(), root.toLongLong());
    if (root.isEmpty() || catalogAt < 0 || pdf.indexOf(root + " 0 obj", catalogAt) != catalogAt)
        return {};
    QByteArray catalog = between(pdf, "obj", "endobj", catalogAt);
    const qsizetype last = catalog.lastIndexOf(">>");
    if (last < 0)
        return {};

    catalog.insert(last, "/ViewerPreferences << /PrintScaling /None >>\n");
    QByteArray update = "\n" + root + " 0 obj\n" + catalog + "\nendobj\n";
    const QByteArray position = QByteArray::number(pdf.size() + 1).rightJustified(10, '0');
    const qsizetype tableAt = pdf.size() + update.size();
    update += "xref\n" + root + " 1\n" + position + " 00000 n \n";
    update += "trailer\n<<\n" + trailer + "\n/Prev " + tableBefore + "\n>>\n";
    update += "startxref\n" + QByteArray::number(tableAt) + "\n%%EOF\n";
    return update;
}
