#pragma once

#include "labels/print/label_builder.h"
#include "paper/calibration.h"

#include <QAbstractTableModel>

#include <memory>

class PictureStore;
class ProblemFinder;

/// Something that would be printed other than the user thinks.
struct PrintProblem
{
    bool ofLayout = false; ///< whichever row is printed
    int queueRow = -1;     ///< −1: of the layout, or no longer in the queue
    QString stock;         ///< name or code of the row
    ElementRef element;    ///< kind 0: the whole label
    QString text;          ///< for the user, the element named in it

    friend bool operator==(const PrintProblem &, const PrintProblem &) = default;
};

/// Where the labels go.
struct PrintSurface
{
    QSizeF dpi;       ///< dots per inch, across and down
    QSizeF area;      ///< mm the printer can reach from where it counts; empty: not known
    QString pictures; ///< folder of the pictures
    Calibration calibration;
};

/// Looks through everything that is to be printed before anything is: first what is wrong with the
/// layout, once each, then row by row. Numbers that are missing, altered or unreadable, rows
/// without a price, texts that do not fit or are bound to an unknown field, missing pictures,
/// elements outside the label or beyond the printer's reach.
std::vector<PrintProblem> findPrintProblems(const PrintJob &job, const PrintSurface &surface);

/// The same in slices, for a window that must not stand still meanwhile.
class ProblemSearch
{
public:
    /// `pictures`: kept by reference, so that a search made again and again reads each picture
    /// once.
    ProblemSearch(PrintJob job, const PrintSurface &surface, PictureStore &pictures);
    ~ProblemSearch();
    Q_DISABLE_COPY_MOVE(ProblemSearch)

    /// Works for so many milliseconds; false when everything was looked at.
    bool goOn(qint64 milliseconds);

    /// What was found, once.
    std::vector<PrintProblem> take();

private:
    std::unique_ptr<ProblemFinder> m_finder;
};

/// The problems of the layout as one line that stays the same while they do; "" without any.
QString layoutProblemKey(const std::vector<PrintProblem> &problems);

/// The problems as a table: stock, problem.
class PrintProblemList final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        stock,
        problem,
        columns
    };

    explicit PrintProblemList(std::vector<PrintProblem> problems, QObject *parent = nullptr);

    const PrintProblem &at(int row) const { return m_problems[static_cast<std::size_t>(row)]; }
    bool hasLayoutProblems() const;
    /// What is asked, with the number of rows.
    QString heading() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    std::vector<PrintProblem> m_problems;
};
