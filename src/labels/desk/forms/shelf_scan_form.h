#pragma once

#include <QDialog>

#include <memory>

class LabelDesk;

namespace Ui {
class ShelfScanForm;
}

/// The screen of a walk along the shelf: what was scanned last, to be read from a metre away. Its
/// box keeps the focus, so that nobody has to look at the keyboard.
class ShelfScanForm final : public QDialog
{
    Q_OBJECT

public:
    /// `desk` must outlive the form.
    explicit ShelfScanForm(LabelDesk &desk, QWidget *parent = nullptr);
    ~ShelfScanForm() override;

private:
    void enter();
    void showTaken();
    void showRemoved();
    void showLast();
    void remember(const QString &entry);
    void showRefused(const QString &reason, const QString &barcode);
    void showTotals();

    LabelDesk &m_desk;
    std::unique_ptr<Ui::ShelfScanForm> m_ui;
};
