#include "labels/designer/clipboard.h"

#include "common/ini_text.h"
#include "common/turkish.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestCaption = 254; ///< what a layout file gives back

/// Reads one text by the rules of a key file; knows no files.
class TextKeys final : public KeyFile
{
public:
    explicit TextKeys(const QByteArray &bytes) : m_text(bytes) {}

    QString read(const QString &section, const QString &key, const QString &) override
    {
        return turkish::fromCodePage1254(
            m_text.value(turkish::toCodePage1254(section), turkish::toCodePage1254(key)));
    }
    bool write(const QString &, const QString &, const QString &, const QString &) override
    {
        return false;
    }
    bool rewrite(const QString &, const std::vector<KeyEntry> &) override { return false; }

private:
    IniText m_text;
};

} // namespace

QByteArray clipboardBytes(const LabelLayout &elements)
{
    return composeKeyFile(layoutEntries(elements));
}

LabelLayout elementsOf(const QByteArray &bytes)
{
    if (bytes.size() > IniText::kLargestText)
        return {};
    TextKeys keys(bytes);
    return openLayout(keys, {});
}

LabelLayout elementOfText(const QString &text)
{
    LabelLayout layout;
    TextElement element;
    element.caption = text.simplified().left(kLongestCaption);
    element.box = {2, 2, 30, 5};
    element.font = {u"Arial"_s, 8};
    element.alignment = u"1"_s;
    if (!element.caption.isEmpty())
        layout.texts = {element};
    return layout;
}
