#pragma once

#include "labels/designer/design.h"
#include "labels/print/print_problems.h"
#include "paper/picture_store.h"

#include <QHash>

#include <memory>

/// Something about an element that the user should know before labels are printed.
struct DesignNotice
{
    LabelRef ref;
    QString text;
    bool light = false; ///< the label prints well all the same

    friend bool operator==(const DesignNotice &, const DesignNotice &) = default;
};

/// Looks through a design as it would be printed: what the print engine would ask about, boxes
/// without size, fonts that this machine has not. In slices, since a thousand barcodes take a
/// while.
class DesignChecks
{
public:
    /// `pictures`: folder of the pictures.
    explicit DesignChecks(const QString &pictures);

    /// Begins anew. `row`: the values that the design shows; `surface`: where it is printed.
    void begin(const Design &design, const LabelRow &row, const PrintSurface &surface);
    /// Works for so many milliseconds; false when everything was looked at.
    bool goOn(qint64 milliseconds);
    /// What was found, once.
    std::vector<DesignNotice> take();

    /// Pictures are read anew: one of the folder may have changed.
    void forgetPictures();

private:
    const QString &fontNotice(const QString &name);

    QString m_folder;
    std::unique_ptr<PictureStore> m_pictures;
    std::unique_ptr<ProblemSearch> m_search;
    Design m_design;                 ///< that is looked at
    QString m_number;                ///< what is wrong with the number of its barcodes
    QHash<QString, QString> m_fonts; ///< what is to be said of each font
};
