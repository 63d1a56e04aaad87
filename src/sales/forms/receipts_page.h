#pragma once

#include "sales/journal/receipt_archive.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class ReceiptPreview;

namespace Ui {
class ReceiptsPage;
}

/// The receipts of the last months: found, looked at, printed again.
class ReceiptsPage final : public QWidget
{
    Q_OBJECT

public:
    explicit ReceiptsPage(ReceiptArchive &archive, QWidget *parent = nullptr);
    ~ReceiptsPage() override;

    void load();

private:
    void showChosen();
    void print();

    ReceiptArchive &m_archive;
    std::vector<ReceiptArchive::Entry> m_found;
    std::unique_ptr<Ui::ReceiptsPage> m_ui;
    ReceiptPreview *m_preview;
    QTimer m_typed; ///< searches when the typing rests
};
