#include "labels/layout/label_layout.h"

#include "common/amount.h"
#include "common/turkish.h"
#include "paper/turned_text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double kLargestAngle = 3600;

double bounded(double value, double most)
{
    return std::fabs(value) <= most ? value : 0;
}

/// Other programs, and people, write 12.5 where a layout has 12,5; nobody groups the digits of a
/// length.
QString withDecimalComma(QStringView text)
{
    QString number = text.toString();
    if (number.count(u'.') == 1 && !number.contains(u','))
        number.replace(u'.', u',');
    return number;
}

/// A picture is only ever taken from the picture folder, whatever path a file names.
QString bareName(const QString &path)
{
    const qsizetype folder = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return path.sliced(folder + 1);
}

class Reader
{
public:
    Reader(KeyFile &keys, const QString &file) : m_keys(keys), m_file(file) {}

    void enter(const QString &section) { m_section = section; }

    QString text(const QString &key) const { return m_keys.read(m_section, key, m_file); }
    float length(const QString &key) const
    {
        const float value = layoutLength(text(key));
        return std::fabs(value) <= kLongestLength ? value : 0;
    }
    int number(const QString &key) const { return amount::integer(text(key)); }
    bool flag(const QString &key) const { return turkish::truth(text(key)); }

    double points(const QString &key) const
    {
        return std::max(
            0.0, bounded(amount::parse(withDecimalComma(text(key))).value_or(0), kLargestFont));
    }

    double degrees(const QString &key) const
    {
        return bounded(static_cast<double>(amount::single(text(key))), kLargestAngle);
    }

    /// Enters the sections prefix1, prefix2, … up to the first without a width.
    template <typename Element>
    std::vector<Element> elements(const QString &prefix, Element (*readOne)(const Reader &))
    {
        std::vector<Element> result;
        for (int k = 1; k <= kMostElements; ++k) {
            enter(prefix + QString::number(k));
            if (text(u"x"_s).isEmpty())
                break;
            result.push_back(readOne(*this));
        }
        return result;
    }

private:
    KeyFile &m_keys;
    QString m_file;
    QString m_section;
};

class Writer
{
public:
    void enter(const QString &section) { m_section = section; }

    void put(const QString &key, const QString &value)
    {
        m_entries.push_back({m_section, key, value});
    }
    void putLength(const QString &key, float mm)
    {
        // An empty width would end the list of elements, so an endless one is written as 0,0.
        put(key, amount::length(std::isfinite(mm) ? mm : 0.0F));
    }
    void putFlag(const QString &key, bool value) { put(key, turkish::truthText(value)); }
    void putNumber(const QString &key, int value) { put(key, QString::number(value)); }

    template <typename Element>
    void putElements(const QString &prefix, const std::vector<Element> &elements,
                     void (*putOne)(Writer &, const Element &))
    {
        int k = 0;
        for (const Element &element : elements) {
            enter(prefix + QString::number(++k));
            putLength(u"x"_s, element.box.width);
            putLength(u"y"_s, element.box.height);
            putOne(*this, element);
        }
    }

    std::vector<KeyEntry> take() { return std::move(m_entries); }

private:
    std::vector<KeyEntry> m_entries;
    QString m_section;
};

LabelBox readBox(const Reader &in)
{
    return {in.length(u"posx"_s), in.length(u"posy"_s), in.length(u"x"_s), in.length(u"y"_s)};
}

void putPosition(Writer &out, const LabelBox &box)
{
    out.putLength(u"posx"_s, box.left);
    out.putLength(u"posy"_s, box.top);
}

PictureElement readPicture(const Reader &in)
{
    return {readBox(in), bareName(in.text(u"pic"_s))};
}

void putPicture(Writer &out, const PictureElement &picture)
{
    putPosition(out, picture.box);
    out.put(u"pic"_s, picture.file);
}

BarcodeElement readBarcode(const Reader &in)
{
    BarcodeElement bars;
    bars.box = readBox(in);
    bars.font = {in.text(u"fn"_s), in.points(u"fsz"_s), in.flag(u"fb"_s),
                 in.flag(u"fi"_s), in.flag(u"fu"_s),    in.flag(u"fs"_s)};
    bars.colour = in.number(u"fc"_s);
    bars.option10 = in.number(u"bo"_s);
    bars.option1 = in.number(u"bar"_s);
    bars.sample = in.text(u"bt"_s);
    return bars;
}

void putBarcode(Writer &out, const BarcodeElement &bars)
{
    putPosition(out, bars.box);
    out.putFlag(u"fb"_s, bars.font.bold);
    out.putFlag(u"fi"_s, bars.font.italic);
    out.putFlag(u"fu"_s, bars.font.underline);
    out.put(u"fn"_s, bars.font.name);
    out.put(u"fsz"_s, amount::points(bars.font.size));
    out.putFlag(u"fs"_s, bars.font.strikeThrough);
    out.putNumber(u"fc"_s, bars.colour);
    out.putNumber(u"bo"_s, bars.option10);
    out.putNumber(u"bar"_s, bars.option1);
    out.put(u"bt"_s, bars.sample);
}

LabelBox readTextBox(const Reader &in, double angle)
{
    LabelBox box = readBox(in);
    const auto corner = startCorner(angle);
    if (!corner)
        return {0, 0, box.width, box.height};
    if (corner->x() != 0)
        box.left -= box.width;
    if (corner->y() != 0)
        box.top -= box.height;
    return box;
}

/// The file keeps the point where the turned text starts.
void putAnchor(Writer &out, const LabelBox &box, double angle)
{
    const auto corner = startCorner(angle);
    if (!corner)
        return;
    out.putLength(u"posx"_s, corner->x() != 0 ? box.left + box.width : box.left);
    out.putLength(u"posy"_s, corner->y() != 0 ? box.top + box.height : box.top);
}

/// The designer keeps the bound field and the alignment as one tag, divided by "<123>"; a value
/// that holds the divider itself shifts what is read as the alignment.
void readTag(const Reader &in, TextElement *element)
{
    const QString divider = u"<123>"_s;
    const QStringList fields = (in.text(u"bl"_s) + divider + in.text(u"angl"_s)).split(divider);
    element->field = fields.at(0);
    element->alignment = fields.at(1);
}

TextElement readText(const Reader &in)
{
    TextElement text;
    text.font = {in.text(u"font"_s), in.points(u"fsize"_s), in.flag(u"fb"_s),
                 in.flag(u"fi"_s),   in.flag(u"fund"_s),    in.flag(u"fstr"_s)};
    text.angle = in.degrees(u"hz"_s);
    text.colour = in.number(u"clr"_s);
    const QString border = in.text(u"brd"_s);
    if (border == u"1" || border == u"0")
        text.border = border == u"1";
    text.box = readTextBox(in, text.angle);
    if (!startCorner(text.angle)) {
        text.startLeft = in.length(u"posx"_s);
        text.startTop = in.length(u"posy"_s);
    }
    text.marked = in.text(u"tur"_s) == u"1";
    readTag(in, &text);
    text.caption = in.text(u"yz"_s);
    return text;
}

void putText(Writer &out, const TextElement &text)
{
    out.put(u"font"_s, text.font.name);
    out.put(u"fsize"_s, amount::points(text.font.size));
    out.putFlag(u"fb"_s, text.font.bold);
    out.putFlag(u"fi"_s, text.font.italic);
    out.putFlag(u"fund"_s, text.font.underline);
    out.putFlag(u"fstr"_s, text.font.strikeThrough);
    out.putNumber(u"brd"_s, text.border ? 1 : 0);
    out.putNumber(u"clr"_s, text.colour);
    out.put(u"hz"_s, amount::plain(static_cast<float>(text.angle)));
    out.put(u"angl"_s, text.alignment);
    putAnchor(out, text.box, text.angle);
    out.putNumber(u"tur"_s, text.marked ? 1 : 0);
    out.put(u"bl"_s, text.field.isEmpty() ? QString() : text.caption);
    out.put(u"yz"_s, text.caption);
}

/// A page value of the layout, its section and key, in the order of the file.
struct PageKey
{
    const char16_t *section;
    const char16_t *key;
    QString LabelLayout::*value;
};

constexpr PageKey kPageKeys[] = {
    {u"paper", u"x", &LabelLayout::paperWidth},    {u"paper", u"y", &LabelLayout::paperHeight},
    {u"paper", u"ind1", &LabelLayout::ind1},       {u"paper", u"ind2", &LabelLayout::orientation},
    {u"paper", u"ind3", &LabelLayout::ind3},       {u"paper", u"ksay", &LabelLayout::paperCode},
    {u"print", u"printer", &LabelLayout::printer}, {u"print", u"kalite", &LabelLayout::quality},
    {u"label", u"sol", &LabelLayout::left},        {u"label", u"ust", &LabelLayout::top},
    {u"label", u"yara", &LabelLayout::stepX},      {u"label", u"dara", &LabelLayout::stepY},
    {u"label", u"yadet", &LabelLayout::across},    {u"label", u"dadet", &LabelLayout::down},
};

QString defaultFile(const QString &directory)
{
    return layoutFolder(directory) + u"/Default.zev"_s;
}

} // namespace

float layoutLength(QStringView text)
{
    return amount::single(withDecimalComma(text));
}

QString layoutFolder(const QString &directory)
{
    return directory + u"/ayar"_s;
}

QString pictureFolder(const QString &directory)
{
    return layoutFolder(directory) + u"/pic"_s;
}

LabelLayout openLayout(KeyFile &keys, const QString &file)
{
    LabelLayout layout;
    Reader in(keys, file);
    layout.pictures = in.elements(u"pc"_s, readPicture);
    layout.barcodes = in.elements(u"bar"_s, readBarcode);
    layout.texts = in.elements(u"tx"_s, readText);
    for (const PageKey &page : kPageKeys) {
        in.enter(QString::fromUtf16(page.section));
        layout.*page.value = in.text(QString::fromUtf16(page.key));
    }
    return layout;
}

std::vector<KeyEntry> layoutEntries(const LabelLayout &layout)
{
    Writer out;
    out.putElements(u"pc"_s, layout.pictures, putPicture);
    out.putElements(u"bar"_s, layout.barcodes, putBarcode);
    out.putElements(u"tx"_s, layout.texts, putText);
    for (const PageKey &page : kPageKeys) {
        out.enter(QString::fromUtf16(page.section));
        out.put(QString::fromUtf16(page.key), layout.*page.value);
    }
    return out.take();
}

bool saveLayout(KeyFile &keys, const QString &file, const LabelLayout &layout)
{
    return keys.rewrite(file, layoutEntries(layout));
}

QString layoutFileName(const QString &name)
{
    return name.endsWith(u".ayr") ? name : name + u".ayr"_s;
}

QString defaultLayout(KeyFile &keys, const QString &directory)
{
    return keys.read(u"default"_s, u"file"_s, defaultFile(directory));
}

bool setDefaultLayout(KeyFile &keys, const QString &directory, const QString &fileName)
{
    return keys.write(u"default"_s, u"file"_s, fileName, defaultFile(directory));
}
