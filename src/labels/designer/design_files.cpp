#include "labels/designer/design_files.h"

#include "common/amount.h"
#include "common/turkish.h"
#include "labels/designer/geometry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 100;
constexpr qsizetype kPart =
    240; ///< characters of one value; a key file gives back no more than 254
constexpr int kMostParts = 400;
const QString kCopySection = u"kurtarma"_s;
const QString kCopyFile = u"Kurtarma.zev"_s;
const QString kNotesFile = u"Tasarim.zev"_s;

const std::pair<ElementKind, QString> kPrefixes[] = {{ElementKind::picture, u"pc"_s},
                                                     {ElementKind::barcode, u"bar"_s},
                                                     {ElementKind::text, u"tx"_s}};

QString refText(LabelRef ref)
{
    for (const auto &[kind, prefix] : kPrefixes)
        if (kind == ref.kind)
            return prefix + QString::number(ref.index + 1);
    return {};
}

std::optional<LabelRef> refOf(const QString &text)
{
    for (const auto &[kind, prefix] : kPrefixes) {
        const int number = text.startsWith(prefix) ? text.sliced(prefix.size()).toInt() : 0;
        if (number > 0)
            return LabelRef{kind, static_cast<std::size_t>(number) - 1};
    }
    return {};
}

QStringList lengths(const std::vector<float> &places)
{
    QStringList result;
    for (const float place : places)
        result += amount::length(place);
    return result;
}

std::vector<float> places(const QStringList &texts)
{
    std::vector<float> result;
    for (const QString &text : texts)
        if (const auto place = amount::parse(text))
            result.push_back(tenth(*place));
    return result;
}

/// A closing bracket would end the section's name early.
QString sectionOf(const QString &fileName)
{
    return QString(fileName).replace(u']', u')');
}

/// The list cut into values a key file can hold.
QStringList parts(const QStringList &list)
{
    QStringList result;
    for (const QString &item : list) {
        if (result.isEmpty() || result.last().size() + item.size() >= kPart)
            result += item;
        else
            result.last() += u' ' + item;
    }
    return result;
}

QString partKey(const QString &key, int part)
{
    return part == 0 ? key : key + QString::number(part + 1);
}

/// What is remembered beside a layout, by key.
std::vector<std::pair<QString, QStringList>> noteLists(const Design &design)
{
    QStringList locked;
    for (const LabelRef ref : design.locked)
        locked += refText(ref);
    QStringList label;
    if (!design.label.isEmpty())
        label = {amount::length(design.label.width()), amount::length(design.label.height())};
    return {{u"kilit"_s, locked},
            {u"dikey"_s, lengths(design.guides.vertical)},
            {u"yatay"_s, lengths(design.guides.horizontal)},
            {u"etiket"_s, label}};
}

/// The same read back; what the layout has not is left out.
void takeNotes(const std::function<QStringList(const QString &)> &list, Design &design)
{
    for (const QString &text : list(u"kilit"_s)) {
        const auto ref = refOf(text);
        if (ref && hasElement(design.layout, *ref))
            design.locked.insert(*ref);
    }
    design.guides.vertical = places(list(u"dikey"_s));
    design.guides.horizontal = places(list(u"yatay"_s));
    const std::vector<float> label = places(list(u"etiket"_s));
    if (label.size() == 2 && label[0] > 0 && label[1] > 0)
        design.label = {static_cast<double>(label[0]), static_cast<double>(label[1])};
}

} // namespace

QString DesignFiles::path(const QString &fileName) const
{
    return layoutFolder(m_directory) + u'/' + fileName;
}

bool DesignFiles::exists(const QString &fileName) const
{
    return QFileInfo::exists(path(fileName));
}

bool DesignFiles::create(const QString &fileName)
{
    QDir().mkpath(layoutFolder(m_directory));
    QFile file(path(fileName));
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
}

void DesignFiles::remove(const QString &fileName)
{
    QFile::remove(path(fileName));
}

void DesignFiles::saveNotes(const QString &section, const Design &design, const QString &file)
{
    for (const auto &[key, list] : noteLists(design)) {
        const QStringList values = parts(list);
        for (int part = 0; part < kMostParts; ++part) {
            const QString value = values.value(part);
            const QString former = m_keys.read(section, partKey(key, part), file);
            if (value != former)
                m_keys.write(section, partKey(key, part), value, file);
            else if (value.isEmpty())
                break;
        }
    }
}

void DesignFiles::readNotes(const QString &section, Design &design, const QString &file) const
{
    const auto list = [&](const QString &key) {
        QStringList items;
        for (int part = 0; part < kMostParts; ++part) {
            const QString value = m_keys.read(section, partKey(key, part), file);
            if (value.isEmpty())
                break;
            items += value.split(u' ', Qt::SkipEmptyParts);
        }
        return items;
    };
    takeNotes(list, design);
}

Design DesignFiles::open(const QString &fileName) const
{
    Design design;
    design.layout = openLayout(m_keys, path(fileName));
    readNotes(sectionOf(fileName), design, path(kNotesFile));
    return design;
}

bool DesignFiles::save(const QString &fileName, const Design &design)
{
    if (!saveLayout(m_keys, path(fileName), design.layout))
        return false;
    saveNotes(sectionOf(fileName), design, path(kNotesFile));
    return true;
}

bool DesignFiles::keepCopy(const QString &fileName, const Design &design)
{
    std::vector<KeyEntry> entries = layoutEntries(design.layout);
    entries.push_back({kCopySection, u"ad"_s, fileName});
    entries.push_back({kCopySection, u"zaman"_s, m_clock.now().toString(Qt::ISODate)});
    for (const auto &[key, list] : noteLists(design)) {
        const QStringList values = parts(list);
        for (int part = 0; part < values.size(); ++part)
            entries.push_back({kCopySection, partKey(key, part), values[part]});
    }
    return m_keys.rewrite(path(kCopyFile), entries);
}

void DesignFiles::dropCopy()
{
    QFile::remove(path(kCopyFile));
}

std::optional<RecoveredDesign> DesignFiles::copy() const
{
    const QString file = path(kCopyFile);
    RecoveredDesign found;
    found.when = QDateTime::fromString(m_keys.read(kCopySection, u"zaman"_s, file), Qt::ISODate);
    if (!found.when.isValid())
        return {};
    found.name = m_keys.read(kCopySection, u"ad"_s, file);
    found.design.layout = openLayout(m_keys, file);
    readNotes(kCopySection, found.design, file);
    return found;
}

QString nameProblem(const QString &name)
{
    static const QStringList reserved = {u"CON"_s, u"PRN"_s, u"AUX"_s, u"NUL"_s};
    const QString base = QFileInfo(layoutFileName(name)).completeBaseName().trimmed();
    if (base.isEmpty())
        return u"Tasarıma bir ad yazınız."_s;
    if (name.size() > kLongestName)
        return u"Ad en çok %1 harf olabilir."_s.arg(kLongestName);
    const auto refused = [](QChar c) {
        return c.unicode() < 0x20 || QStringView(u"\\/:*?\"<>|").contains(c);
    };
    if (std::any_of(name.begin(), name.end(), refused))
        return u"Adda şu işaretler bulunamaz:  \\ / : * ? \" < > |"_s;
    const QString upper = base.section(u'.', 0, 0).toUpper();
    const bool port = upper.size() == 4 && upper.back().isDigit() &&
                      (upper.startsWith(u"COM") || upper.startsWith(u"LPT"));
    if (reserved.contains(upper) || port || name.startsWith(u'.') || name.startsWith(u' '))
        return u"“%1” dosya adı olamaz; başka bir ad yazınız."_s.arg(name);
    // The file of the default layout holds the name in this code page.
    if (turkish::fromCodePage1254(turkish::toCodePage1254(name)) != name)
        return u"Adda Türkçede bulunmayan bir harf var."_s;
    return {};
}
