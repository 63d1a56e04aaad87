#pragma once

#include "paper/text_lines.h"

#include <QApplication>
#include <QStyle>
#include <QStyledItemDelegate>

/// Shows a name that is too long for its column as labels and receipts do: words of its middle give
/// way, its end with the size of the pack is seen.
class NameDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QStyle &style = option->widget ? *option->widget->style() : *QApplication::style();
        const int margin =
            style.pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
        const int room = option->rect.width() - 2 * margin;
        if (room <= 0) // it is being measured
            return;
        const QFontMetrics &metrics = option->fontMetrics;
        const auto fits = [&](QStringView text) {
            return metrics.horizontalAdvance(text.toString()) <= room;
        };
        option->text = splitLines(option->text, 1, Breaking::lineEnds, fits).lines.value(0);
    }
};
