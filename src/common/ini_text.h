#pragma once

#include "common/key_file.h"

#include <QByteArray>
#include <QHash>

#include <vector>

/// The bytes of one key file and an index into them. The rules are those of the profile functions
/// of Windows, because shops edit and copy these files with programs that use them:
///
/// Lines
/// - CR, LF and CR LF each end a line; the last line may lack its end. Editors differ.
/// - Blanks are space, tab, vertical tab, form feed and Ctrl-Z (the old end-of-file mark).
/// - A line whose first character is ";" is a comment. Nothing after a value is a comment, so that
///   captions may hold ";".
/// - "[name]" opens a section; blanks around the name are taken off, text after the bracket is
///   ignored. Without the closing bracket it is an unknown line.
/// - "key=value" with blanks around both taken off; the first "=" divides, so values may hold more.
/// - Every other line is unknown: kept, never read. A UTF-8 byte order mark makes the first line
///   unknown, because it is no blank.
///
/// Reading
/// - Names compare without regard to case. Letters are folded one by one as Windows folds file
///   names: "ğ" is "Ğ" and "i" is "I", but "ı" and "İ" stand for themselves in every language.
/// - The first section of a name holds, and in it the first key of a name; a later section of the
///   same name is never looked into. Keys above the first section belong to none, and a section
///   without a name is not read.
/// - One pair of equal quotes around a value, ' or ", is taken off; blanks inside it stay.
/// - A value ends at a NUL byte and after 254 bytes, as the caller's buffer does.
///
/// Writing
/// - A key that is there is replaced in its line and keeps the spelling of its name.
/// - A new key goes behind the last line of its section that is not blank, a new section to the end
///   of the file. Everything else keeps its bytes.
/// - Written lines end with CR LF. CR, LF and NUL in a name or value become blanks, because they
///   would break the line.
///
/// Building the index takes time and memory proportional to the text; reading takes neither.
class IniText
{
public:
    static constexpr qsizetype kLongestValue = 254;
    /// Nothing a shop keeps in a key file comes near; a larger file is not one.
    static constexpr qsizetype kLargestText = qsizetype{1} << 24;

    IniText() = default;
    /// At most kLargestText bytes.
    explicit IniText(const QByteArray &text);

    const QByteArray &bytes() const { return m_text; }

    /// The value of a key; "" when the section or the key is missing.
    QByteArray value(QByteArrayView section, QByteArrayView key) const;

    /// Takes time proportional to the whole text.
    void setValue(QByteArrayView section, QByteArrayView key, QByteArrayView value);

private:
    using Offset = quint32;
    static constexpr int kNoSection = -1;

    struct Range
    {
        Offset begin = 0;
        Offset end = 0;
    };

    struct KeyName
    {
        int section = kNoSection;
        QByteArrayView name;

        friend bool operator==(const KeyName &a, const KeyName &b)
        {
            return a.section == b.section && a.name == b.name;
        }
        friend size_t qHash(const KeyName &k, size_t seed) noexcept
        {
            return qHashMulti(seed, k.section, k.name);
        }
    };

    struct Key
    {
        Range name;
        Range value;
        Range line; ///< with its line end
    };

    void readLine(Range content, Range line, int *section);
    int enterSection(Range name, Offset lineEnd);
    int findSection(QByteArrayView section) const;
    Range stripped(Range range) const;
    QByteArray slice(Range range) const;
    void replace(Range range, const QByteArray &bytes);

    QByteArray m_text;
    QByteArray m_folded; ///< m_text with its letters folded; the names of the index point into it
    QHash<QByteArrayView, int> m_sections;
    std::vector<Offset> m_sectionEnds; ///< by section: where a new key of it goes
    QHash<KeyName, Key> m_keys;
};

/// A whole new file: an empty line, then what writing the entries one after another leaves.
QByteArray composeKeyFile(const std::vector<KeyEntry> &entries);

/// What a written line holds of a value: line ends and NUL become blanks.
QByteArray writtenValue(QByteArrayView value);

/// The same of a section's or key's name, which also loses the blanks around it.
QByteArray writtenName(QByteArrayView name);
