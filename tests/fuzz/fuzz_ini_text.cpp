#include "common/ini_text.h"
#include "fuzz/fuzz_check.h"

#include <array>

namespace {

/// Cuts the next piece off the input, up to a byte 0xFF.
QByteArray cut(QByteArrayView *rest)
{
    const qsizetype end = rest->indexOf('\xFF');
    QByteArray piece = (end < 0 ? *rest : rest->first(end)).toByteArray();
    *rest = end < 0 ? QByteArrayView() : rest->sliced(end + 1);
    return piece;
}

/// Names that a file can give back: not those that look like another kind of line.
bool plainName(const QByteArray &name)
{
    for (const char c : name)
        if (c == '[' || c == ']' || c == '=' || c == ';' || (c >= 0 && c < ' '))
            return false;
    return true;
}

} // namespace

/// Input: section, key and value to write, each ended by 0xFF, then the file.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    QByteArrayView rest(data, static_cast<qsizetype>(size));
    const QByteArray section = cut(&rest);
    const QByteArray key = cut(&rest);
    const QByteArray value = cut(&rest);
    const IniText before(rest.toByteArray());
    require(before.value(section, key).size() <= IniText::kLongestValue, "values are cut");

    IniText text = before;
    text.setValue(section, key, value);
    require(before.bytes() == rest, "a copy is written alone");
    IniText alone;
    alone.setValue("s", "k", value);
    const bool plain = plainName(section) && !section.trimmed().isEmpty() && plainName(key);
    if (plain)
        require(text.value(section, key) == alone.value("s", "k"), "what is written is read");

    const IniText again(text.bytes());
    require(again.value(section, key) == text.value(section, key), "the index follows the text");
    IniText twice = text;
    twice.setValue(section, key, value);
    if (plain)
        require(twice.bytes() == text.bytes(), "writing twice changes nothing");

    const std::array<const char *, 4> names = {"label", "sol", "tx1", "s"};
    for (const char *s : names)
        for (const char *k : names)
            if (plain && section.trimmed().compare(s, Qt::CaseInsensitive) != 0)
                require(before.value(s, k) == text.value(s, k), "other sections stay");
    return 0;
}
