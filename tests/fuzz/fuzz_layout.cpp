#include "fuzz/fuzz_check.h"
#include "labels/layout/label_layout.h"
#include "support/ini_key_file.h"

using namespace Qt::StringLiterals;

/// Input: a layout file. Whatever it holds, a saved layout opens as the same layout for ever after.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    IniKeyFile keys;
    const QString file = u"fuzz.ayr"_s;
    keys.files.insert(file,
                      IniText(QByteArrayView(data, static_cast<qsizetype>(size)).toByteArray()));
    const LabelLayout hostile = openLayout(keys, file);

    saveLayout(keys, file, hostile);
    const LabelLayout first = openLayout(keys, file);
    require(first.texts.size() == hostile.texts.size(), "no text is lost");
    require(first.barcodes.size() == hostile.barcodes.size(), "no barcode is lost");
    require(first.pictures.size() == hostile.pictures.size(), "no picture is lost");

    saveLayout(keys, file, first);
    require(openLayout(keys, file) == first, "the second opening equals the first");
    return 0;
}
