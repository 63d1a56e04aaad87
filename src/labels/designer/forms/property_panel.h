#pragma once

#include <QWidget>

class BarcodePage;
class DesignerSession;
class GeometryPage;
class PicturePage;
class TextPage;
QT_BEGIN_NAMESPACE
class QGroupBox;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

/// The selected elements in exact numbers and values.
class PropertyPanel final : public QWidget
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit PropertyPanel(DesignerSession &session, QWidget *parent = nullptr);

    /// Takes the keyboard.
    void enter();
    /// What is to be said of the selected elements, or of all when none is; "" hides it.
    void showNotice(const QString &text, bool fixable);

Q_SIGNALS:
    /// The size that can be read is wanted.
    void fixWanted();
    /// Escape: back to the canvas.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showSelection();
    QGroupBox *group(const QString &title, QWidget *page);

    DesignerSession &m_session;
    QLabel *m_head;
    QLabel *m_overview; ///< of the whole design, while nothing is selected
    GeometryPage *m_geometry;
    TextPage *m_text;
    BarcodePage *m_barcode;
    PicturePage *m_picture;
    QGroupBox *m_geometryGroup;
    QGroupBox *m_textGroup;
    QGroupBox *m_barcodeGroup;
    QGroupBox *m_pictureGroup;
    QLabel *m_notice;
    QPushButton *m_fix;
};
