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

DesignChecks::DesignChecks(const QString &pictures) : m_folder(pictures)
{
    forgetPictures();
}

void DesignChecks::forgetPictures()
{
    m_search.reset();
    m_pictures = std::make_unique<PictureStore>(m_folder);
}

void DesignChecks::begin(const Design &design, const LabelRow &row, const PrintSurface &surface)
{
    PrintJob job = makePrintJob(design.layout, {row});
    job.rows.front().count =
        static_cast<int>(std::clamp<qint64>(job.grid.places(), 1, kMostPlaces));
    m_design = design;
    m_number = numberFault(row.barcode, ean::Symbology::ean13);
    m_search = std::make_unique<ProblemSearch>(std::move(job), surface, *m_pictures);
}

bool DesignChecks::goOn(qint64 milliseconds)
{
    return m_search && m_search->goOn(milliseconds);
}

std::vector<DesignNotice> DesignChecks::take()
{
    std::vector<DesignNotice> notices;
    if (!m_search)
        return notices;
    const LabelLayout &layout = m_design.layout;
    const auto add = [&](LabelRef ref, const QString &text, bool light = false) {
        if (!text.isEmpty() && hasElement(layout, ref))
            notices.push_back({ref, text, light});
    };
    for (const PrintProblem &problem : m_search->take())
        if (problem.element.kind != 0)
            add({static_cast<ElementKind>(problem.element.kind),
                 static_cast<std::size_t>(problem.element.index)},
                problem.text);
    for (const LabelRef ref : RefSet::all(layout)) {
        const LabelBox &box = boxOf(layout, ref);
        if (box.width <= 0 || box.height <= 0)
            add(ref, u"Ögenin eni ya da boyu sıfır."_s);
        if (ref.kind == ElementKind::picture && layout.pictures[ref.index].file.isEmpty())
            add(ref, u"Resim seçilmemiş."_s);
        if (ref.kind == ElementKind::barcode) {
            add(ref, m_number);
            add(ref, fontNotice(layout.barcodes[ref.index].font.name), true);
        }
        if (ref.kind == ElementKind::text)
            add(ref, fontNotice(layout.texts[ref.index].font.name), true);
    }
    m_search.reset();
    return notices;
}
