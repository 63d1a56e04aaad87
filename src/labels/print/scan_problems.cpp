#include "labels/print/scan_problems.h"

#include "common/amount.h"
#include "common/windows_colour.h"
#include "labels/print/ean.h"
#include "paper/millimetres.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kNamed = 8;  ///< rows named in the question
constexpr int kLightestRed = 0x80; ///< scanners see by red light; a redder bar looks white

/// What keeps a symbol from being read in any of the layout's elements; "" when nothing does.
QString elementProblem(const PrintJob &job, const BarSymbol &symbol, QSizeF dpi)
{
    for (const BarcodeElement &element : job.barcodes) {
        const QRectF box(0, 0, static_cast<double>(element.box.width),
                         static_cast<double>(element.box.height));
        const auto geometry = fitBars(symbol, box, dpi);
        if (!geometry)
            return u"barkod kutusuna sığmıyor"_s;
        const double module = geometry->module * kMmPerInch / dpi.width();
        if (module < kNarrowestModule)
            return u"çizgileri bu yazıcıda çok ince (%1 mm)"_s.arg(
                amount::plain(std::round(module * 100) / 100));
        if (colourOf(element.colour).red() >= kLightestRed)
            return u"barkodun rengi okuyucu için çok açık"_s;
    }
    return {};
}

/// The layout's own problems, found once per symbology.
class ElementProblems
{
public:
    ElementProblems(const PrintJob &job, QSizeF dpi) : m_job(job), m_dpi(dpi) {}

    const QString &find(const BarSymbol &symbol)
    {
        auto &known = m_known[symbol.digits.size() == 8 ? 0 : 1];
        if (!known)
            known = elementProblem(m_job, symbol, m_dpi);
        return *known;
    }

private:
    const PrintJob &m_job;
    QSizeF m_dpi;
    std::array<std::optional<QString>, 2> m_known;
};

} // namespace

std::vector<ScanProblem> findScanProblems(const PrintJob &job, QSizeF dpi)
{
    std::vector<ScanProblem> problems;
    if (job.barcodes.empty())
        return problems;

    ElementProblems elements(job, dpi);
    ean::Symbology symbology = ean::Symbology::ean13;
    for (std::size_t i = 0; i < job.rows.size(); ++i) {
        const LabelRow &row = job.rows[i];
        if (row.count < 1)
            continue;
        symbology = ean::bySize(row.barcode, symbology);
        const auto symbol = ean::encode(symbology, row.barcode);
        const QString reason = row.barcode.isEmpty() ? u"barkodu yok"_s
                               : symbol              ? elements.find(*symbol)
                                                     : u"geçersiz barkod %1"_s.arg(row.barcode);
        if (!reason.isEmpty())
            problems.push_back({i, reason});
    }
    return problems;
}

QString scanQuestion(const PrintJob &job, const std::vector<ScanProblem> &problems)
{
    QStringList lines = {u"%1 satırın barkodunu okuyucu okuyamaz:"_s.arg(problems.size()),
                         QString()};
    for (std::size_t i = 0; i < std::min(problems.size(), kNamed); ++i) {
        const LabelRow &row = job.rows[problems[i].row];
        const QString &name = row.stockName.isEmpty() ? row.stockCode : row.stockName;
        lines += u"%1: %2"_s.arg(name.left(60), problems[i].reason.left(60));
    }
    if (problems.size() > kNamed)
        lines += u"… ve %1 satır daha"_s.arg(problems.size() - kNamed);
    lines += {QString(), u"Yine de yazdırılsın mı?"_s};
    return lines.join(u'\n');
}
