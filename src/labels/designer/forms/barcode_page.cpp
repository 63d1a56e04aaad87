#include "labels/designer/forms/barcode_page.h"

#include "labels/designer/designer_session.h"
#include "labels/designer/forms/font_row.h"
#include "labels/designer/readable_bars.h"
#include "ui_barcode_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMergeSample = 41;

} // namespace

BarcodePage::BarcodePage(DesignerSession &session, QWidget *parent)
    : QWidget(parent), m_session(session), m_editor(session.editor()),
      m_ui(std::make_unique<Ui::BarcodePage>())
{
    m_ui->setupUi(this);
    auto *row = new FontRow(
        {m_ui->font, m_ui->points, m_ui->bold, m_ui->italic, m_ui->underline, m_ui->strike}, this);
    row->setObjectName(u"fontRow"_s);
    connect(row, &FontRow::edited, this,
            [this](const QString &what, int merge, const std::function<void(PaperFont &)> &edit) {
                m_editor.changeEach<BarcodeElement>(what, merge,
                                                    [&](BarcodeElement &bars) { edit(bars.font); });
            });
    connect(m_ui->sample, &QLineEdit::textEdited, this, [this](const QString &sample) {
        m_editor.changeEach<BarcodeElement>(u"Örnek numara"_s, kMergeSample,
                                            [&](BarcodeElement &bars) { bars.sample = sample; });
    });
    connect(m_ui->colour, &ColourButton::edited, this, [this](int colour) {
        m_editor.changeEach<BarcodeElement>(u"Renk"_s, 0,
                                            [&](BarcodeElement &bars) { bars.colour = colour; });
    });
}

BarcodePage::~BarcodePage() = default;

void BarcodePage::enter()
{
    m_ui->sample->setFocus();
    m_ui->sample->selectAll();
}

void BarcodePage::showSelection()
{
    QList<const BarcodeElement *> all;
    QList<PaperFont> fonts;
    for (const LabelRef ref : m_editor.selection())
        if (ref.kind == ElementKind::barcode) {
            all += &m_editor.layout().barcodes[ref.index];
            fonts += all.back()->font;
        }
    if (all.isEmpty())
        return;
    const auto same = [&](auto BarcodeElement::*value) {
        return std::all_of(all.begin(), all.end(), [&](const BarcodeElement *bars) {
            return bars->*value == all.front()->*value;
        });
    };
    qobject_cast<FontRow *>(findChild<QObject *>(u"fontRow"_s))->show(fonts);
    const QString sample = same(&BarcodeElement::sample) ? all.front()->sample : QString();
    if (m_ui->sample->text() != sample)
        m_ui->sample->setText(sample);
    m_ui->sizes->setText(smallestSizes(*all.front(), m_session.row().barcode));
    m_ui->colour->showColour(same(&BarcodeElement::colour) ? std::optional(all.front()->colour)
                                                           : std::nullopt);
}
