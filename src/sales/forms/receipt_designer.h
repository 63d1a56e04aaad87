#pragma once

#include <QDialog>

#include <array>
#include <memory>

class ReceiptEditor;
class ReceiptPreview;
struct ReceiptLayout;
struct ReceiptStyle;

QT_BEGIN_NAMESPACE
class QCheckBox;
class QDoubleSpinBox;
class QFontComboBox;
QT_END_NAMESPACE

namespace Ui {
class ReceiptDesigner;
}

/// Edits the layout of the receipt beside a live preview.
class ReceiptDesigner final : public QDialog
{
    Q_OBJECT

public:
    explicit ReceiptDesigner(ReceiptEditor &editor, QWidget *parent = nullptr);
    ~ReceiptDesigner() override;

    void reject() override;

private:
    /// The controls of one option string.
    struct StyleControls
    {
        QFontComboBox *font;
        QDoubleSpinBox *points;
        QCheckBox *bold;
    };

    void display(const ReceiptLayout &layout);
    void connectFields();
    void edited();
    void showPreview();
    ReceiptLayout shown() const;

    static void displayStyle(const StyleControls &controls, const QString &options);
    static QString shownStyle(const StyleControls &controls, const QString &former);
    std::array<QDoubleSpinBox *, 7> widthBoxes() const;

    ReceiptEditor &m_editor;
    std::unique_ptr<Ui::ReceiptDesigner> m_ui;
    StyleControls m_header;
    StyleControls m_receipt;
    StyleControls m_product;
    ReceiptPreview *m_preview;
};
