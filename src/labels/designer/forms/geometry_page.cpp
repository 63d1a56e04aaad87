#include "labels/designer/forms/geometry_page.h"

#include "labels/designer/design_editor.h"
#include "labels/designer/shared_values.h"
#include "ui_geometry_page.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kLargest = 1000; ///< mm

struct Side
{
    LengthBox *box;
    float LabelBox::*value;
    int merge;
};

} // namespace

GeometryPage::GeometryPage(DesignEditor &editor, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_ui(std::make_unique<Ui::GeometryPage>())
{
    m_ui->setupUi(this); // no letter of another page stands there, which is seen beneath it
    for (LengthBox *size : {m_ui->across, m_ui->down})
        size->setRange(kSmallestSide, kLargest);
    connectBoxes();
}

GeometryPage::~GeometryPage() = default;

void GeometryPage::connectBoxes()
{
    const Side sides[] = {{m_ui->left, &LabelBox::left, 11},
                          {m_ui->top, &LabelBox::top, 12},
                          {m_ui->across, &LabelBox::width, 13},
                          {m_ui->down, &LabelBox::height, 14}};
    for (const Side &side : sides)
        connect(side.box, &LengthBox::edited, this, [this, side](double mm) {
            m_editor.change(u"Konum ve boyut"_s, side.merge, [&](Design &design) {
                for (const LabelRef ref : m_editor.changeable())
                    boxOf(design.layout, ref).*side.value = tenth(mm);
            });
        });
}

void GeometryPage::showSelection()
{
    const RefSet &refs = m_editor.selection();
    const auto shown = [&](float LabelBox::*value) {
        return shared(refs, [&](LabelRef ref) {
            return static_cast<double>(boxOf(m_editor.layout(), ref).*value);
        });
    };
    m_ui->left->showLength(shown(&LabelBox::left));
    m_ui->top->showLength(shown(&LabelBox::top));
    m_ui->across->showLength(shown(&LabelBox::width));
    m_ui->down->showLength(shown(&LabelBox::height));
}
