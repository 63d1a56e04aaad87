#include "common/ini_text.h"

#include "common/turkish.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<char, 256> makeFoldTable()
{
    std::array<char, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i);
    for (std::size_t i = 'a'; i <= 'z'; ++i)
        table[i] = static_cast<char>(i - 0x20);
    // à to þ stand 0x20 above their capitals, but for the division sign and the dotless ı.
    for (std::size_t i = 0xE0; i <= 0xFE; ++i)
        if (i != 0xF7 && i != 0xFD)
            table[i] = static_cast<char>(i - 0x20);
    table[0x9A] = static_cast<char>(0x8A); // š
    table[0x9C] = static_cast<char>(0x8C); // œ
    table[0xFF] = static_cast<char>(0x9F); // ÿ
    return table;
}

constexpr std::array<char, 256> kFold = makeFoldTable();

QByteArray folded(QByteArrayView bytes)
{
    QByteArray result(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), result.begin(),
                   [](char c) { return kFold[static_cast<unsigned char>(c)]; });
    return result;
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f' || c == '\x1A';
}

bool endsLine(char c)
{
    return c == '\r' || c == '\n';
}

QByteArrayView strippedView(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && isBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && isBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

QByteArray keyLine(QByteArrayView key, QByteArrayView value)
{
    return writtenName(key) + '=' + writtenValue(value) + "\r\n";
}

QByteArray sectionLine(QByteArrayView section)
{
    return '[' + writtenName(section) + "]\r\n";
}

} // namespace

QByteArray writtenValue(QByteArrayView value)
{
    QByteArray result = value.toByteArray();
    std::replace_if(
        result.begin(), result.end(), [](char c) { return endsLine(c) || c == '\0'; }, ' ');
    return result;
}

QByteArray writtenName(QByteArrayView name)
{
    return strippedView(writtenValue(name)).toByteArray();
}

IniText::IniText(const QByteArray &text) : m_text(text), m_folded(folded(text))
{
    Q_ASSERT(text.size() <= kLargestText);
    const auto size = static_cast<Offset>(m_text.size());
    int section = kNoSection;
    for (Offset begin = 0; begin < size;) {
        const auto *const stop = std::find_if(m_text.cbegin() + begin, m_text.cend(), endsLine);
        const auto end = static_cast<Offset>(stop - m_text.cbegin());
        Offset next = std::min(end + 1, size);
        if (next < size && m_text.at(end) == '\r' && m_text.at(next) == '\n')
            ++next;
        readLine(stripped({begin, end}), {begin, next}, &section);
        begin = next;
    }
}

/// `content`: the line without the blanks around it and its line end.
void IniText::readLine(Range content, Range line, int *section)
{
    if (content.begin == content.end)
        return;
    const auto *const first = m_text.cbegin() + content.begin;
    const auto *const last = m_text.cbegin() + content.end;
    if (*first == '[') {
        const auto *const bracket = std::find(first, last, ']');
        if (bracket != last) {
            const auto nameEnd = static_cast<Offset>(bracket - m_text.cbegin());
            *section = enterSection(stripped({content.begin + 1, nameEnd}), line.end);
            return;
        }
    }
    if (*section == kNoSection)
        return;
    m_sectionEnds[static_cast<std::size_t>(*section)] = line.end;
    const auto *const equals = std::find(first, last, '=');
    if (*first == ';' || *first == '[' || equals == last)
        return;
    const auto divider = static_cast<Offset>(equals - m_text.cbegin());
    const Range name = stripped({content.begin, divider});
    const KeyName id{*section, QByteArrayView(m_folded).sliced(name.begin, name.end - name.begin)};
    if (!m_keys.contains(id))
        m_keys.insert(id, {name, stripped({divider + 1, content.end}), line});
}

/// The new section's number, or none for a name that an earlier section has.
int IniText::enterSection(Range name, Offset lineEnd)
{
    const auto view = QByteArrayView(m_folded).sliced(name.begin, name.end - name.begin);
    if (m_sections.contains(view))
        return kNoSection;
    const auto number = static_cast<int>(m_sectionEnds.size());
    m_sections.insert(view, number);
    m_sectionEnds.push_back(lineEnd);
    return number;
}

int IniText::findSection(QByteArrayView section) const
{
    return m_sections.value(folded(strippedView(section)), kNoSection);
}

IniText::Range IniText::stripped(Range range) const
{
    while (range.begin < range.end && isBlank(m_text.at(range.begin)))
        ++range.begin;
    while (range.begin < range.end && isBlank(m_text.at(range.end - 1)))
        --range.end;
    return range;
}

QByteArray IniText::slice(Range range) const
{
    return m_text.mid(range.begin, range.end - range.begin);
}

QByteArray IniText::value(QByteArrayView section, QByteArrayView key) const
{
    if (strippedView(section).isEmpty())
        return {};
    const QByteArray name = folded(strippedView(key));
    const auto found = m_keys.constFind({findSection(section), name});
    if (found == m_keys.cend())
        return {};
    Range range = found->value;
    const char quote = range.end - range.begin >= 2 ? m_text.at(range.begin) : '\0';
    if ((quote == '"' || quote == '\'') && m_text.at(range.end - 1) == quote) {
        ++range.begin;
        --range.end;
    }
    range.end = std::min(range.end, range.begin + static_cast<Offset>(kLongestValue));
    QByteArray result = slice(range);
    const qsizetype nul = result.indexOf('\0');
    if (nul >= 0)
        result.truncate(nul);
    return result;
}

void IniText::setValue(QByteArrayView section, QByteArrayView key, QByteArrayView value)
{
    const int number = findSection(writtenName(section));
    const QByteArray foldedName = folded(writtenName(key));
    const auto found = m_keys.constFind({number, foldedName});
    if (found != m_keys.cend()) {
        replace(found->line, keyLine(slice(found->name), value));
        return;
    }
    const Offset place = number == kNoSection ? static_cast<Offset>(m_text.size())
                                              : m_sectionEnds[static_cast<std::size_t>(number)];
    QByteArray added;
    if (place > 0 && !endsLine(m_text.at(place - 1)))
        added += "\r\n";
    if (number == kNoSection)
        added += sectionLine(section);
    added += keyLine(key, value);
    replace({place, place}, added);
}

void IniText::replace(Range range, const QByteArray &bytes)
{
    QByteArray text = m_text;
    text.replace(range.begin, range.end - range.begin, bytes);
    *this = IniText(text);
}

QByteArray composeKeyFile(const std::vector<KeyEntry> &entries)
{
    struct Key
    {
        QByteArray name;
        QByteArray value;
    };
    struct Section
    {
        QByteArray name;
        std::vector<Key> keys;
        QHash<QByteArray, std::size_t> index;
    };
    std::vector<Section> sections;
    QHash<QByteArray, std::size_t> index;
    for (const KeyEntry &entry : entries) {
        const QByteArray sectionName = writtenName(turkish::toCodePage1254(entry.section));
        const QByteArray keyName = writtenName(turkish::toCodePage1254(entry.key));
        const std::size_t at = index.value(folded(sectionName), sections.size());
        if (at == sections.size()) {
            index.insert(folded(sectionName), at);
            sections.push_back({sectionName, {}, {}});
        }
        Section &section = sections[at];
        const std::size_t keyAt = section.index.value(folded(keyName), section.keys.size());
        if (keyAt == section.keys.size()) {
            section.index.insert(folded(keyName), keyAt);
            section.keys.push_back({keyName, {}});
        }
        section.keys[keyAt].value = turkish::toCodePage1254(entry.value);
    }

    QByteArray text = "\r\n";
    for (const Section &section : sections) {
        text += sectionLine(section.name);
        for (const Key &key : section.keys)
            text += keyLine(key.name, key.value);
    }
    return text;
}
