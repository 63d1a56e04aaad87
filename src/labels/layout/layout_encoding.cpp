#include "labels/layout/layout_encoding.h"

#include "common/turkish.h"

#include <QStringDecoder>

#include <algorithm>

namespace {

bool isValidUtf8(const QByteArray &file)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(file);
    return !decoder.hasError() && !text.isNull();
}

QString decoded(const QByteArray &file)
{
    if (encodingOf(file) == LayoutEncoding::utf8)
        return QString::fromUtf8(file.startsWith("\xEF\xBB\xBF") ? file.sliced(3) : file);
    const bool bigEndian = file.startsWith("\xFE\xFF") || (file.size() > 1 && file.at(0) == 0);
    QStringDecoder decoder(bigEndian ? QStringDecoder::Utf16BE : QStringDecoder::Utf16LE);
    return decoder.decode(file);
}

} // namespace

LayoutEncoding encodingOf(const QByteArray &file)
{
    if (file.startsWith("\xFF\xFE") || file.startsWith("\xFE\xFF") || file.left(2).contains('\0'))
        return LayoutEncoding::utf16;
    if (file.startsWith("\xEF\xBB\xBF"))
        return LayoutEncoding::utf8;
    const bool plain = std::all_of(file.cbegin(), file.cend(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return !plain && isValidUtf8(file) ? LayoutEncoding::utf8 : LayoutEncoding::codePage;
}

std::optional<QByteArray> inCodePage(const QByteArray &file)
{
    if (encodingOf(file) == LayoutEncoding::codePage)
        return file;
    const QString text = decoded(file);
    const QByteArray bytes = turkish::toCodePage1254(text);
    if (turkish::fromCodePage1254(bytes) != text)
        return {};
    return bytes;
}
