#include "fuzz/fuzz_check.h"
#include "labels/layout/label_layout.h"
#include "support/ini_key_file.h"

using namespace Qt::StringLiterals;

namespace {

PaperFont withoutName(PaperFont font)
{
    font.name.clear();
    return font;
}

/// The layout's elements without their texts.
LabelLayout numbersOf(const LabelLayout &layout)
{
    LabelLayout numbers;
    numbers.pictures = layout.pictures;
    numbers.barcodes = layout.barcodes;
    numbers.texts = layout.texts;
    for (PictureElement &picture : numbers.pictures)
        picture.file.clear();
    for (BarcodeElement &bars : numbers.barcodes) {
        bars.font = withoutName(bars.font);
        bars.sample.clear();
    }
    for (TextElement &text : numbers.texts) {
        text.font = withoutName(text.font);
        text.alignment = text.field = text.caption = QString();
    }
    return numbers;
}

} // namespace

/// Input: a layout file. Whatever it holds, a saved layout opens with the same elements and numbers
/// for ever after; its texts lose blanks and quotes around them, once per saving, and nothing else.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    IniKeyFile keys;
    const QString file = u"fuzz.ayr"_s;
    keys.files.insert(file,
                      IniText(QByteArrayView(data, static_cast<qsizetype>(size)).toByteArray()));
    const LabelLayout hostile = openLayout(keys, file);

    saveLayout(keys, file, hostile);
    LabelLayout last = openLayout(keys, file);
    require(last.texts.size() == hostile.texts.size(), "no text is lost");
    require(last.barcodes.size() == hostile.barcodes.size(), "no barcode is lost");
    require(last.pictures.size() == hostile.pictures.size(), "no picture is lost");

    for (qsizetype pass = 0; pass <= IniText::kLongestValue; ++pass) {
        saveLayout(keys, file, last);
        const LabelLayout next = openLayout(keys, file);
        if (next == last)
            return 0;
        require(numbersOf(next) == numbersOf(last), "numbers are saved as they were opened");
        last = next;
    }
    require(false, "saving comes to rest");
    return 0;
}
