#pragma once

#include "sales/receipt_commands.h"

#include <QWidget>

/// Shows a receipt as the paper will, as wide as the widget allows.
class ReceiptPreview final : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    void show(const ReceiptPage &page);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double dotsPerMm(int width) const;

    ReceiptPage m_page;
};
