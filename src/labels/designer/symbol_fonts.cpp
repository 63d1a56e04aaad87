#include "labels/designer/symbol_fonts.h"

#include "common/turkish.h"

#include <QFontDatabase>
#include <QFontMetrics>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirst = 0x21;
constexpr int kLast = 0xFF;

const QStringList &usualFonts()
{
    static const QStringList usual = {u"Wingdings"_s, u"Wingdings 2"_s, u"Wingdings 3"_s,
                                      u"Webdings"_s,  u"Symbol"_s,      u"Marlett"_s};
    return usual;
}

} // namespace

QStringList symbolFonts()
{
    const QStringList installed = QFontDatabase::families();
    QStringList found;
    for (const QString &family : usualFonts())
        if (installed.contains(family, Qt::CaseInsensitive))
            found += family;
    for (const QString &family : QFontDatabase::families(QFontDatabase::Symbol))
        if (!found.contains(family, Qt::CaseInsensitive))
            found += family;
    return found;
}

bool isSymbol(const TextElement &text)
{
    const QString &font = text.font.name;
    return text.field.isEmpty() && text.caption.size() <= 1 &&
           (usualFonts().contains(font, Qt::CaseInsensitive) ||
            symbolFonts().contains(font, Qt::CaseInsensitive));
}

std::vector<QChar> symbolsOf(const QString &family)
{
    const QFontMetrics metrics{QFont(family)};
    std::vector<QChar> symbols;
    for (int byte = kFirst; byte <= kLast; ++byte) {
        const QString text = turkish::fromCodePage1254(QByteArray(1, static_cast<char>(byte)));
        if (text.size() == 1 && text.front().isPrint() && !text.front().isSpace() &&
            metrics.inFont(text.front()))
            symbols.push_back(text.front());
    }
    return symbols;
}
