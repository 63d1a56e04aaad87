#include "paper/millimetres.h"
#include "paper/paged_canvas.h"
#include "paper/text_block.h"
#include "sales/journal/day_report.h"
#include "sales/journal/kurus.h"

#include <QFile>
#include <QPdfWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kWidth = 180.0;  ///< mm between the margins of A4
constexpr double kMargin = 15.0;  ///< mm
constexpr double kLine = 6.0;     ///< mm
constexpr double kCaption = 55.0; ///< mm, first column of the table
constexpr double kBars = 40.0;    ///< mm, height of the busiest hour
constexpr int kColumns = 4;       ///< cashiers beside one another, with all of them
constexpr QRgb kPaper = 0xFFFFFFFF;
constexpr QRgb kGrey = 0xFFBBBBBB;
constexpr QRgb kBarColour = 0xFF2B6CB0;

/// Writes the report from top to bottom.
class DayWriter
{
public:
    explicit DayWriter(const TextMeasure &measure) : m_measure(measure) {}

    void text(const QString &line, double points, bool bold)
    {
        put({0, m_y, kWidth, kLine * points / 10}, line, Alignment::left, points, bold);
        m_y += kLine * points / 10;
    }

    void gap(double height) { m_y += height; }

    /// Begins a new page unless as much fits on this one: the strip is cut above what stands over
    /// its end.
    void keep(double height)
    {
        m_commands.push_back({RectangleCommand{{0, m_y, kWidth, height}, 0, kPaper, true}, {}});
    }

    void table(const DayFigures &figures, std::size_t first, std::size_t last,
               const std::vector<const CashierFigures *> &columns)
    {
        const double width = (kWidth - kCaption) / kColumns;
        const auto at = [&](std::size_t i) {
            return kCaption + width * static_cast<double>(i - first);
        };
        const auto captions = day_report::rows(figures.all, figures.all.rates);
        keep(kLine * static_cast<double>(captions.size() + 1));
        for (std::size_t i = first; i < last; ++i)
            put({at(i), m_y, width, kLine}, day_report::columnName(*columns[i], i == 0),
                Alignment::right, 9, true);
        m_y += kLine;
        rule();
        for (std::size_t row = 0; row < captions.size(); ++row) {
            put({0, m_y, kCaption, kLine}, captions[row].caption, Alignment::left, 9, false);
            for (std::size_t i = first; i < last; ++i)
                put({at(i), m_y, width, kLine},
                    day_report::rows(*columns[i], figures.all.rates)[row].value, Alignment::right,
                    9, false);
            m_y += kLine;
        }
        rule();
    }

    void hours(const CashierFigures &figures)
    {
        qint64 most = 1;
        for (const HourFigures &hour : figures.hours)
            most = std::max(most, hour.total);
        const double width = kWidth / 24;
        for (std::size_t hour = 0; hour < figures.hours.size(); ++hour) {
            const double height = kBars *
                                  static_cast<double>(std::max(figures.hours[hour].total, 0LL)) /
                                  static_cast<double>(most);
            const double x = width * static_cast<double>(hour);
            if (height > 0.0)
                m_commands.push_back(
                    {RectangleCommand{
                         {x + 1, m_y + kBars - height, width - 2, height}, 0, kBarColour, true},
                     {}});
            put({x, m_y + kBars + 1, width, 4}, QString::number(hour), Alignment::centre, 7, false);
        }
        m_y += kBars + kLine;
    }

    std::vector<DrawCommand> take() { return std::move(m_commands); }

private:
    void put(const QRectF &box, const QString &text, Alignment alignment, double points, bool bold)
    {
        TextBlock block{.box = box,
                        .alignment = alignment,
                        .font = {.name = u"Arial"_s, .size = points, .bold = bold},
                        .text = text,
                        .shrink = true};
        for (const TextCommand &line : placeText(block, m_measure).lines)
            m_commands.push_back({line, {}});
    }

    void rule()
    {
        m_commands.push_back({LineCommand{{0, m_y}, {kWidth, m_y}, 0.2, kGrey}, {}});
        m_y += 1;
    }

    const TextMeasure &m_measure;
    std::vector<DrawCommand> m_commands;
    double m_y = 0.0;
};

} // namespace

bool day_report::writePdf(const DayReport &report, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QPdfWriter writer(&file);
    writer.setTitle(u"Gün sonu "_s + days(report.figures));
    writer.setResolution(600);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
    PagedCanvas canvas(writer);
    if (!canvas.begin())
        return false;
    DayWriter page(canvas.fonts());
    page.text(u"Gün sonu"_s, 18, true);
    page.text(days(report.figures), 12, false);
    page.gap(kLine);
    std::vector<const CashierFigures *> columns = {&report.figures.all};
    for (const CashierFigures &cashier : report.figures.cashiers)
        columns.push_back(&cashier);
    for (std::size_t first = 0; first < columns.size(); first += kColumns) {
        page.table(report.figures, first, std::min(first + kColumns, columns.size()), columns);
        page.gap(kLine);
    }
    page.keep(2 * kLine + kBars);
    page.text(u"Saatlere göre satış"_s, 11, true);
    page.hours(report.figures.all);
    for (const QString &line : closingLines(report))
        page.text(line, 9, false);
    return canvas.paintStrip(page.take()) && canvas.end() && file.flush();
}
