#include "sales/forms/receipt_designer.h"

#include "sales/forms/receipt_preview.h"
#include "sales/receipt_editor.h"
#include "ui_receipt_designer.h"

ReceiptDesigner::ReceiptDesigner(ReceiptEditor &editor, QWidget *parent)
    : QDialog(parent), m_editor(editor), m_ui(std::make_unique<Ui::ReceiptDesigner>())
{
    m_ui->setupUi(this);
    setLocale(QLocale(QLocale::Turkish, QLocale::Turkey)); // decimal comma in the number boxes
    resize(900, 640);
    m_header = {m_ui->headerFont, m_ui->headerSize, m_ui->headerBold};
    m_receipt = {m_ui->receiptFont, m_ui->receiptSize, m_ui->receiptBold};
    m_product = {m_ui->productFont, m_ui->productSize, m_ui->productBold};
    m_preview = new ReceiptPreview;
    m_preview->setObjectName(QStringLiteral("preview"));
    m_ui->previewArea->setWidget(m_preview);
    m_ui->previewArea->setBackgroundRole(QPalette::Mid);

    display(editor.load());
    connectFields();
    connect(&editor, &ReceiptEditor::previewChanged, this, &ReceiptDesigner::showPreview);
    connect(m_ui->testButton, &QPushButton::clicked, &editor, &ReceiptEditor::testPrint);
    connect(m_ui->saveButton, &QPushButton::clicked, this, [this] {
        if (m_editor.save())
            accept();
    });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &ReceiptDesigner::reject);
    edited();
    m_ui->headerText->setFocus(); // else the scroll area would have it
}

ReceiptDesigner::~ReceiptDesigner() = default;

void ReceiptDesigner::reject()
{
    if (m_editor.mayClose())
        QDialog::reject();
}

void ReceiptDesigner::connectFields()
{
    for (QPlainTextEdit *text : {m_ui->headerText, m_ui->aboveText, m_ui->belowText})
        connect(text, &QPlainTextEdit::textChanged, this, &ReceiptDesigner::edited);
    for (const StyleControls &controls : {m_header, m_receipt, m_product}) {
        connect(controls.font, &QFontComboBox::currentTextChanged, this, &ReceiptDesigner::edited);
        connect(controls.points, &QDoubleSpinBox::valueChanged, this, &ReceiptDesigner::edited);
        connect(controls.bold, &QCheckBox::toggled, this, &ReceiptDesigner::edited);
    }
    for (QDoubleSpinBox *box : widthBoxes())
        connect(box, &QDoubleSpinBox::valueChanged, this, &ReceiptDesigner::edited);
    connect(m_ui->sol, &QDoubleSpinBox::valueChanged, this, &ReceiptDesigner::edited);
    connect(m_ui->namedFonts, &QCheckBox::toggled, this, &ReceiptDesigner::edited);
}

void ReceiptDesigner::edited()
{
    m_editor.edit(shown());
}

void ReceiptDesigner::showPreview()
{
    m_preview->show(m_editor.preview());
}

std::array<QDoubleSpinBox *, 7> ReceiptDesigner::widthBoxes() const
{
    return {m_ui->b1, m_ui->b2, m_ui->b3, m_ui->b4, m_ui->b5, m_ui->b6, m_ui->b7};
}

void ReceiptDesigner::displayStyle(const StyleControls &controls, const QString &options)
{
    const ReceiptStyle style = styleOf(options);
    controls.font->setCurrentText(style.font);
    controls.points->setValue(style.points);
    controls.bold->setChecked(style.bold);
}

QString ReceiptDesigner::shownStyle(const StyleControls &controls, const QString &former)
{
    return optionString({styleOf(former).carried, controls.font->currentText(),
                         controls.points->value(), controls.bold->isChecked()});
}

void ReceiptDesigner::display(const ReceiptLayout &layout)
{
    m_ui->headerText->setPlainText(editableText(layout.headerText));
    m_ui->aboveText->setPlainText(editableText(layout.aboveText));
    m_ui->belowText->setPlainText(editableText(layout.belowText));
    displayStyle(m_header, layout.headerOptions);
    displayStyle(m_receipt, layout.receiptOptions);
    displayStyle(m_product, layout.productOptions);
    const auto boxes = widthBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i]->setValue(layout.widths[i]);
    m_ui->b7->setValue(layout.paperWidth());
    m_ui->sol->setValue(layout.leftMargin);
    m_ui->namedFonts->setChecked(layout.namedFonts);
}

ReceiptLayout ReceiptDesigner::shown() const
{
    ReceiptLayout layout = m_editor.layout();
    layout.headerText = blockText(m_ui->headerText->toPlainText());
    layout.aboveText = blockText(m_ui->aboveText->toPlainText());
    layout.belowText = blockText(m_ui->belowText->toPlainText());
    layout.headerOptions = shownStyle(m_header, layout.headerOptions);
    layout.receiptOptions = shownStyle(m_receipt, layout.receiptOptions);
    layout.productOptions = shownStyle(m_product, layout.productOptions);
    const auto boxes = widthBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
        layout.widths[i] = boxes[i]->value();
    layout.leftMargin = m_ui->sol->value();
    layout.namedFonts = m_ui->namedFonts->isChecked();
    return layout;
}
