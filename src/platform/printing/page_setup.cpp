#include "platform/printing/page_setup.h"

#include <algorithm>

QPageLayout pageLayout(const PrinterSetup &setup)
{
    QPageSize size(QPageSize::id(setup.paperCode));
    if (size.id() == QPageSize::Custom || !size.isValid()) {
        size = QPageSize(QPageSize::A4);
        if (!setup.paper.isEmpty()) {
            // A landscape layout turns its page, so the turned size is handed over.
            const QSizeF &paper = setup.paper;
            const QSizeF upright(std::min(paper.width(), paper.height()),
                                 std::max(paper.width(), paper.height()));
            size = QPageSize(setup.portrait ? paper : upright, QPageSize::Millimeter);
        }
    }
    QPageLayout layout(size, setup.portrait ? QPageLayout::Portrait : QPageLayout::Landscape,
                       QMarginsF(), QPageLayout::Millimeter);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}
