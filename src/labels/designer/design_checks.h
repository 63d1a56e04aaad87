#pragma once

#include "labels/designer/design.h"
#include "labels/print/print_problems.h"

#include <QHash>

/// Something about an element that the user should know before labels are printed.
struct DesignNotice
{
    LabelRef ref;
    QString text;
    bool light = false; ///< the label prints well all the same

    friend bool operator==(const DesignNotice &, const DesignNotice &) = default;
};

/// Looks through a design as it would be printed: what the print engine would ask about, boxes
/// without size, fonts that this machine has not.
class DesignChecks
{
public:
    /// `row`: the values that the design shows.
    std::vector<DesignNotice> look(const Design &design, const LabelRow &row,
                                   const PrintSurface &surface);

private:
    const QString &fontNotice(const QString &name);

    QHash<QString, QString> m_fonts; ///< what is to be said of each font
};
