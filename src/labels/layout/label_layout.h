#pragma once

#include "common/key_file.h"
#include "paper/device_font.h"

#include <QString>

#include <vector>

/// Box of an element inside its label, millimetres from the label's upper left corner. Single
/// precision, as the lengths of a layout file are read; a file keeps one decimal of them.
struct LabelBox
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    friend bool operator==(const LabelBox &, const LabelBox &) = default;
};

struct PictureElement
{
    LabelBox box;
    QString file; ///< bare name inside ayar/pic, never with a folder; "" = no picture

    friend bool operator==(const PictureElement &, const PictureElement &) = default;
};

struct BarcodeElement
{
    LabelBox box;
    PaperFont font;   ///< of the human-readable digits
    int colour = 0;   ///< 0x00BBGGRR
    int option10 = 0; ///< key "bo", carried unchanged
    int option1 = 0;  ///< key "bar", carried unchanged
    QString sample;   ///< key "bt", the barcode shown in the designer

    friend bool operator==(const BarcodeElement &, const BarcodeElement &) = default;
};

struct TextElement
{
    LabelBox box; ///< the element's own box; the file keeps its anchor point instead
    PaperFont font;
    bool border = false;
    int colour = 0;    ///< 0x00BBGGRR
    double angle = 0;  ///< degrees, key "hz"; only 0, 90, 180 and 270 have an anchor point, and
                       ///< only their position is kept
    QString alignment; ///< key "angl": "1" left, "2" centre, "3" right
    /// Where printing starts a text of any other angle (mm). Such texts lie at no place of the
    /// page, so that saving does not keep it.
    float startLeft = 0;
    float startTop = 0;
    bool marked = false; ///< key "tur": the element is painted in the marking colour
    QString field;       ///< bound stock field, "" = free text; what is saved of it is the caption
    QString caption;     ///< key "yz"; of a bound text the name of its field

    friend bool operator==(const TextElement &, const TextElement &) = default;
};

/// Everything a layout file (ayar/*.ayr) holds. Page values are kept as the text the user typed.
struct LabelLayout
{
    std::vector<PictureElement> pictures;
    std::vector<BarcodeElement> barcodes;
    std::vector<TextElement> texts;

    QString paperWidth;  ///< mm, section "paper", key "x"
    QString paperHeight; ///< mm, key "y"
    QString ind1;        ///< carried unchanged
    QString orientation; ///< key "ind2": "1" portrait, anything else landscape
    QString ind3;        ///< carried unchanged
    QString paperCode;   ///< key "ksay": Windows paper size number
    QString printer;     ///< device name
    QString quality;     ///< key "kalite"
    QString left;        ///< mm, margin of the first label, key "sol"
    QString top;         ///< mm, key "ust"
    QString stepX;       ///< mm, from one label column to the next, key "yara"
    QString stepY;       ///< mm, from one label row to the next, key "dara"
    QString across;      ///< labels across a sheet, key "yadet"
    QString down;        ///< labels down a sheet, key "dadet"

    friend bool operator==(const LabelLayout &, const LabelLayout &) = default;
};

/// At most this many elements of each kind are read.
inline constexpr int kMostElements = 1000;

/// No sheet is longer (mm) and no font larger (points). Numbers beyond come from a damaged file and
/// read as 0, before they reach the arithmetic of paper and screen.
inline constexpr float kLongestLength = 10'000.0F;
inline constexpr double kLargestFont = 1638.0;

/// A length (mm) as a layout file or a person writes it: a lone point is a decimal point. 0 for
/// unreadable text.
float layoutLength(QStringView text);

/// Where the layout files and their pictures are. `directory`: the working folder.
QString layoutFolder(const QString &directory);
QString pictureFolder(const QString &directory);

/// Reads a layout file. Missing files, sections and keys give empty values, unreadable numbers 0;
/// each kind ends at the first serial number whose width is empty.
LabelLayout openLayout(KeyFile &keys, const QString &file);

/// Everything a layout file holds, in its order.
std::vector<KeyEntry> layoutEntries(const LabelLayout &layout);

/// Writes a layout file anew, all its elements. Texts longer than 254 characters are cut when they
/// are read again. Returns false when it could not be written; an older file of that name is then
/// unharmed.
bool saveLayout(KeyFile &keys, const QString &file, const LabelLayout &layout);

/// The file name with ".ayr" appended unless it already ends so.
QString layoutFileName(const QString &name);

/// Name of the default layout from ayar/Default.zev, "" when none is set. `directory`: the working
/// folder.
QString defaultLayout(KeyFile &keys, const QString &directory);
bool setDefaultLayout(KeyFile &keys, const QString &directory, const QString &fileName);
