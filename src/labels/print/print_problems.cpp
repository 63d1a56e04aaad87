#include "labels/print/print_problems.h"

#include "common/amount.h"
#include "labels/print/label_fields.h"
#include "labels/print/label_preview.h"
#include "labels/print/scannability.h"
#include "paper/millimetres.h"

#include <QElapsedTimer>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr double kEdgeSlack = 0.3;        ///< mm that nobody sees
constexpr qsizetype kShownName = 24;      ///< characters of a caption
constexpr long long kMostPlaces = 10'000; ///< of a sheet are looked at

QString shortened(const QString &text)
{
    return text.size() > kShownName ? text.left(kShownName - 1) + u'…' : text;
}

/// The element as its owner would call it.
QString elementName(const PrintJob &job, ElementRef element)
{
    const auto index = static_cast<std::size_t>(element.index);
    switch (static_cast<ElementKind>(element.kind)) {
    case ElementKind::picture:
        return u"“%1” resmi"_s.arg(shortened(job.pictures[index].file));
    case ElementKind::barcode:
        return job.barcodes.size() > 1 ? u"%1. barkod"_s.arg(index + 1) : u"barkod"_s;
    case ElementKind::text:
        return u"“%1” yazısı"_s.arg(shortened(
            job.texts[index].field.isEmpty() ? job.texts[index].caption : job.texts[index].field));
    }
    return {};
}

} // namespace

/// Looks through the rows of a job in printing order, a step at a time.
class ProblemFinder
{
public:
    ProblemFinder(PrintJob job, const PrintSurface &surface, PictureStore &pictures)
        : m_job(std::move(job)), m_surface(surface), m_fonts(surface.dpi), m_pictures(pictures),
          m_builder(m_job, m_fonts), m_room(labelRoom(m_job)), m_farthest(farthestPlace())
    {}

    /// Looks at the layout, the next row, or the next command of a row; false at the end.
    bool step()
    {
        if (m_label && m_command < m_label->commands.size()) {
            lookAtCommand(m_command++);
            return true;
        }
        if (m_next == 0)
            lookAtLayout();
        if (m_next == m_job.rows.size())
            return false;
        beginRow(m_job.rows[m_next++]);
        return true;
    }

    std::vector<PrintProblem> take()
    {
        for (const auto &[element, beyond] : m_beyond)
            addBeyond({element.first, element.second}, beyond);
        m_ofLayout.insert(m_ofLayout.end(), m_ofRows.begin(), m_ofRows.end());
        return std::move(m_ofLayout);
    }

private:
    /// The place that lies farthest right and the one farthest down, of those printed on.
    QPointF farthestPlace() const
    {
        GridWalk walk(m_job.grid, m_job.firstPlace);
        QPointF farthest;
        const qint64 labels = std::min<qint64>(m_job.labelCount(), kMostPlaces);
        for (qint64 i = 0; i < labels; ++i) {
            const GridWalk::Place place = walk.next();
            farthest = {std::max(farthest.x(), static_cast<double>(place.x)),
                        std::max(farthest.y(), static_cast<double>(place.y))};
        }
        return farthest;
    }

    void layoutProblem(ElementRef element, const QString &text)
    {
        const QString key = u"%1 %2 %3"_s.arg(element.kind).arg(element.index).arg(text);
        if (m_known.contains(key))
            return;
        m_known.insert(key);
        m_ofLayout.push_back({true, -1, {}, element, text});
    }

    void rowProblem(const LabelRow &row, ElementRef element, const QString &text)
    {
        const QString &name = row.stockName.isEmpty() ? row.stockCode : row.stockName;
        m_ofRows.push_back({false, row.queueRow, name, element, text});
    }

    bool isKnown(const QString &field) const
    {
        return std::any_of(m_job.rows.cbegin(), m_job.rows.cend(),
                           [&](const LabelRow &row) { return isKnownField(field, row); });
    }

    void lookAtLayout()
    {
        if (!m_job.grid.isCountable())
            layoutProblem({}, u"sayfadaki etiket adetleri pozitif tam sayı değil; etiketler "
                              u"sayfalara bölünmeden yan yana basılır"_s);
        for (std::size_t i = 0; i < m_job.texts.size(); ++i) {
            const QString &field = m_job.texts[i].field;
            m_hasPrice = m_hasPrice || field == kPriceField;
            if (!field.isEmpty() && !isKnown(field))
                layoutProblem(elementRef(ElementKind::text, i),
                              u"“%1” adlı alan yok, yeri boş kalır"_s.arg(shortened(field)));
        }
        for (std::size_t i = 0; i < m_job.pictures.size(); ++i) {
            const QString &file = m_job.pictures[i].file;
            if (!file.isEmpty() && m_pictures.find(file, {1, 1}).isNull())
                layoutProblem(elementRef(ElementKind::picture, i),
                              u"“%1” resmi bulunamadı ya da açılamıyor"_s.arg(shortened(file)));
        }
    }

    void beginRow(const LabelRow &row)
    {
        m_label.reset();
        if (row.count < 1)
            return;
        m_row = &row;
        m_command = 0;
        m_label = m_builder.label(row);
        m_covers.emplace(*m_label, m_job, m_fonts, m_pictures);
        if (!m_job.barcodes.empty()) {
            const QString fault = numberFault(row.barcode, m_symbology);
            m_symbology = ean::bySize(row.barcode, m_symbology);
            if (!fault.isEmpty())
                rowProblem(row, {}, fault);
        }
        if (m_hasPrice && row.price.trimmed().isEmpty())
            rowProblem(row, {}, u"fiyatı yok"_s);
        else if (m_hasPrice && amount::parse(row.price) == 0.0)
            rowProblem(row, {}, u"fiyatı sıfır"_s);
        for (const std::size_t text : m_label->overflowing) {
            const ElementRef element = elementRef(ElementKind::text, text);
            rowProblem(row, element, elementName(m_job, element) + u" kutusuna sığmıyor"_s);
        }
    }

    void lookAtCommand(std::size_t number)
    {
        const DrawCommand &command = m_label->commands[number];
        if (const auto *const bars = std::get_if<BarsCommand>(&command.shape)) {
            // Alike for all numbers of a symbology.
            if (m_judged.insert({command.element.index, bars->symbol.name}).second)
                for (const ScanFault &fault : barFaults(*bars, m_room, m_fonts))
                    layoutProblem(command.element, barcodeText(command.element, fault.text));
            if (const auto cover = m_covers->fault(number)) {
                const QString text = barcodeText(command.element, cover->text);
                if (cover->fromRowTexts)
                    rowProblem(*m_row, command.element, text);
                else
                    layoutProblem(command.element, text);
            }
        }
        lookAtPlace(command, m_covers->place(number));
    }

    QString barcodeText(ElementRef element, const QString &fault) const
    {
        return m_job.barcodes.size() > 1 ? elementName(m_job, element) + u": "_s + fault : fault;
    }

    /// Whether what a command draws is on the label, and where the printer can reach.
    void lookAtPlace(const DrawCommand &command, const QRectF &ink)
    {
        if (!onPaper(ink.topLeft()) || !onPaper(ink.bottomRight()))
            return;
        const QRectF label =
            QRectF(QPointF(), m_room).adjusted(-kEdgeSlack, -kEdgeSlack, kEdgeSlack, kEdgeSlack);
        const bool isBars = std::holds_alternative<BarsCommand>(command.shape);
        if (!isBars && !m_room.isEmpty() && !label.contains(ink))
            layoutProblem(command.element,
                          elementName(m_job, command.element) + u" etiketin dışına taşıyor"_s);

        // The farthest places of the sheet decide; the first ones where something stands out left.
        const QPointF first(static_cast<double>(m_job.grid.left),
                            static_cast<double>(m_job.grid.top));
        const QPointF start = m_surface.calibration.place(ink.topLeft() + first);
        const QPointF end = m_surface.calibration.place(ink.bottomRight() + m_farthest);
        Beyond &most = m_beyond[{command.element.kind, command.element.index}];
        most.left = std::max(most.left, -start.x());
        most.above = std::max(most.above, -start.y());
        if (!m_surface.area.isEmpty()) {
            most.right = std::max(most.right, end.x() - m_surface.area.width());
            most.below = std::max(most.below, end.y() - m_surface.area.height());
        }
    }

    /// By how much (mm) an element reaches over each edge of what the printer can print on.
    struct Beyond
    {
        double left = 0;
        double above = 0;
        double right = 0;
        double below = 0;
    };

    void addBeyond(ElementRef element, const Beyond &beyond)
    {
        QStringList edges;
        const auto add = [&](const QString &edge, double mm) {
            if (mm > kEdgeSlack)
                edges += edge + u' ' + amount::length(mm) + u" mm"_s;
        };
        add(u"solda"_s, beyond.left);
        add(u"üstte"_s, beyond.above);
        add(u"sağda"_s, beyond.right);
        add(u"altta"_s, beyond.below);
        if (!edges.isEmpty())
            layoutProblem(element, u"%1 yazıcının basamadığı kenara taşıyor: %2"_s.arg(
                                       elementName(m_job, element), edges.join(u", "_s)));
    }

    PrintJob m_job;
    PrintSurface m_surface;
    DeviceFonts m_fonts;
    PictureStore &m_pictures;
    LabelBuilder m_builder;
    QSizeF m_room;
    QPointF m_farthest;
    std::size_t m_next = 0;              ///< row
    const LabelRow *m_row = nullptr;     ///< that is being looked at
    std::optional<BuiltLabel> m_label;   ///< of m_row
    std::optional<CoverSearch> m_covers; ///< of m_label
    std::size_t m_command = 0;           ///< of m_label, the next
    ean::Symbology m_symbology = ean::Symbology::ean13;
    bool m_hasPrice = false;
    QSet<QString> m_known;
    std::set<std::pair<int, QString>> m_judged;     ///< barcode of the layout, symbology
    std::map<std::pair<int, int>, Beyond> m_beyond; ///< by kind and index of the element
    std::vector<PrintProblem> m_ofLayout;
    std::vector<PrintProblem> m_ofRows;
};

std::vector<PrintProblem> findPrintProblems(const PrintJob &job, const PrintSurface &surface)
{
    PictureStore pictures(surface.pictures);
    ProblemFinder finder(job, surface, pictures);
    while (finder.step()) {
    }
    return finder.take();
}

ProblemSearch::ProblemSearch(PrintJob job, const PrintSurface &surface, PictureStore &pictures)
    : m_finder(std::make_unique<ProblemFinder>(std::move(job), surface, pictures))
{}

ProblemSearch::~ProblemSearch() = default;

bool ProblemSearch::goOn(qint64 milliseconds)
{
    QElapsedTimer since;
    since.start();
    while (m_finder->step())
        if (since.hasExpired(milliseconds))
            return true;
    return false;
}

std::vector<PrintProblem> ProblemSearch::take()
{
    return m_finder->take();
}

QString layoutProblemKey(const std::vector<PrintProblem> &problems)
{
    QStringList texts;
    for (const PrintProblem &problem : problems)
        if (problem.ofLayout)
            texts += problem.text;
    texts.sort();
    return texts.join(u'|');
}

PrintProblemList::PrintProblemList(std::vector<PrintProblem> problems, QObject *parent)
    : QAbstractTableModel(parent), m_problems(std::move(problems))
{}

bool PrintProblemList::hasLayoutProblems() const
{
    return !m_problems.empty() && m_problems.front().ofLayout;
}

QString PrintProblemList::heading() const
{
    QSet<std::pair<int, QString>> rows;
    for (const PrintProblem &one : m_problems)
        if (!one.ofLayout)
            rows.insert({one.queueRow, one.stock});
    QStringList where;
    if (hasLayoutProblems())
        where += u"tasarımda"_s;
    if (!rows.isEmpty())
        where += u"%1 satırda"_s.arg(amount::whole(rows.size()));
    return u"Sandığınızdan başka çıkacak etiketler var (%1). Yine de yazdırılsın mı?"_s.arg(
        where.join(u", "_s));
}

int PrintProblemList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_problems.size());
}

int PrintProblemList::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant PrintProblemList::data(const QModelIndex &index, int role) const
{
    const PrintProblem &one = at(index.row());
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    if (index.column() == problem)
        return one.text;
    if (one.ofLayout)
        return u"Tasarım"_s;
    return one.queueRow < 0 ? one.stock : u"%1. %2"_s.arg(one.queueRow + 1).arg(one.stock);
}

QVariant PrintProblemList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == stock ? u"Satır"_s : u"Nasıl çıkacak"_s;
}
