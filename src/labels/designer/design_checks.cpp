#include "labels/designer/design_checks.h"

#include "labels/print/scannability.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostPlaces = 10'000; ///< of a sheet are looked at

} // namespace

const QString &DesignChecks::fontNotice(const QString &name)
{
    const auto known = m_fonts.constFind(name);
    if (known != m_fonts.cend())
        return *known;
    QString text;
    if (!name.isEmpty() && !QFontDatabase::hasFamily(name))
        text = u"“%1” yazı tipi bu bilgisayarda yok; yerine “%2” kullanılıyor."_s.arg(
            name, QFontInfo(QFont(name)).family());
    return *m_fonts.insert(name, text);
}

std::vector<DesignNotice> DesignChecks::look(const Design &design, const LabelRow &row,
                                             const PrintSurface &surface)
{
    std::vector<DesignNotice> notices;
    const auto add = [&](LabelRef ref, const QString &text, bool light = false) {
        if (!text.isEmpty() && hasElement(design.layout, ref))
            notices.push_back({ref, text, light});
    };
    PrintJob job = makePrintJob(design.layout, {row});
    job.rows.front().count =
        static_cast<int>(std::clamp<qint64>(job.grid.places(), 1, kMostPlaces));
    for (const PrintProblem &problem : findPrintProblems(job, surface))
        if (problem.element.kind != 0)
            add({static_cast<ElementKind>(problem.element.kind),
                 static_cast<std::size_t>(problem.element.index)},
                problem.text);
    for (const LabelRef ref : RefSet::all(design.layout)) {
        const LabelBox &box = boxOf(design.layout, ref);
        if (box.width <= 0 || box.height <= 0)
            add(ref, u"Ögenin eni ya da boyu sıfır."_s);
        if (ref.kind == ElementKind::picture && design.layout.pictures[ref.index].file.isEmpty())
            add(ref, u"Resim seçilmemiş."_s);
        if (ref.kind == ElementKind::barcode)
            add(ref, numberFault(row.barcode, ean::Symbology::ean13));
        if (ref.kind == ElementKind::barcode)
            add(ref, fontNotice(design.layout.barcodes[ref.index].font.name), true);
        if (ref.kind == ElementKind::text)
            add(ref, fontNotice(design.layout.texts[ref.index].font.name), true);
    }
    return notices;
}
