#include "labels/designer/forms/picture_page.h"

#include "labels/designer/design_editor.h"
#include "labels/designer/picture_folder.h"
#include "labels/designer/shared_values.h"
#include "ui_picture_page.h"

#include <QFileDialog>
#include <QSignalBlocker>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kPreview(230, 110);

} // namespace

PicturePage::PicturePage(DesignEditor &editor, PictureFolder &pictures, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_pictures(pictures),
      m_ui(std::make_unique<Ui::PicturePage>())
{
    m_ui->setupUi(this);
    connect(m_ui->file, &QComboBox::activated, this,
            [this](int index) { setFile(m_ui->file->itemData(index).toString()); });
    connect(m_ui->import, &QPushButton::clicked, this, &PicturePage::bringIn);
    connect(m_ui->proportion, &QPushButton::clicked, this, &PicturePage::keepProportion);
}

PicturePage::~PicturePage() = default;

void PicturePage::enter()
{
    m_ui->file->setFocus();
}

void PicturePage::setFile(const QString &file)
{
    m_editor.changeEach<PictureElement>(u"Resim"_s, 0,
                                        [&](PictureElement &picture) { picture.file = file; });
    showSelection();
}

void PicturePage::bringIn()
{
    const QString from = QFileDialog::getOpenFileName(
        this, u"Resim Seç"_s, QStandardPaths::writableLocation(QStandardPaths::PicturesLocation),
        u"Resimler (*.png *.jpg *.jpeg *.bmp *.gif)"_s);
    const QString name = from.isEmpty() ? QString() : m_pictures.bringIn(from);
    if (!name.isEmpty())
        setFile(name);
}

/// The height follows the width, so that the picture is not pulled out of shape.
void PicturePage::keepProportion()
{
    m_editor.changeEach<PictureElement>(u"Resim oranı"_s, 0, [this](PictureElement &picture) {
        const QSize size = m_pictures.facts(picture.file).size;
        if (!size.isEmpty())
            picture.box.height =
                tenth(static_cast<double>(picture.box.width) * size.height() / size.width());
    });
}

void PicturePage::showSelection()
{
    const RefSet pictures = m_editor.selection().filtered(
        [](LabelRef ref) { return ref.kind == ElementKind::picture; });
    const auto file = shared(
        pictures, [this](LabelRef ref) { return m_editor.layout().pictures[ref.index].file; });
    fillFiles(file.value_or(QString()));
    if (!file)
        m_ui->file->setCurrentIndex(-1);
    showPicture(file.value_or(QString()));
}

void PicturePage::fillFiles(const QString &file)
{
    const QSignalBlocker quiet(m_ui->file);
    m_ui->file->clear();
    m_ui->file->addItem(u"(resim yok)"_s, QString());
    for (const QString &name : m_pictures.names())
        m_ui->file->addItem(name, name);
    if (m_ui->file->findData(file) < 0)
        m_ui->file->addItem(file, file);
    m_ui->file->setCurrentIndex(m_ui->file->findData(file));
}

void PicturePage::showPicture(const QString &file)
{
    if (file == m_shown && !file.isEmpty())
        return; // a large picture is not read anew at every step of a drag
    m_shown = file;
    if (file.isEmpty()) {
        m_ui->preview->setPixmap({});
        m_ui->facts->clear();
        return;
    }
    const PictureFacts facts = m_pictures.facts(file);
    const qreal ratio = devicePixelRatioF();
    QImage image = m_pictures.preview(file, (QSizeF(kPreview) * ratio).toSize());
    image.setDevicePixelRatio(ratio);
    m_ui->preview->setPixmap(QPixmap::fromImage(image));
    m_ui->facts->setText(facts.problem.isEmpty()
                             ? u"%1 × %2 nokta"_s.arg(facts.size.width()).arg(facts.size.height())
                             : facts.problem);
    m_ui->proportion->setEnabled(!facts.size.isEmpty());
}
