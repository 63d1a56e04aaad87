#include "labels/designer/design_checks.h"

#include <QFontDatabase>
#include <QFontInfo>

using namespace Qt::StringLiterals;

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
    const auto add = [&](LabelRef ref, const QString &text) {
        if (!text.isEmpty() && hasElement(design.layout, ref))
            notices.push_back({ref, text});
    };
    for (const PrintProblem &problem :
         findPrintProblems(makePrintJob(design.layout, {row}), surface))
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
            add(ref, fontNotice(design.layout.barcodes[ref.index].font.name));
        if (ref.kind == ElementKind::text)
            add(ref, fontNotice(design.layout.texts[ref.index].font.name));
    }
    return notices;
}
