#pragma once

#include <QDialog>

class DesignerSession;
QT_BEGIN_NAMESPACE
class QLabel;
class QScrollArea;
QT_END_NAMESPACE

/// The sheet as it will be printed, with the stocks that the designer shows.
class SheetView final : public QDialog
{
    Q_OBJECT

public:
    /// `session` is kept by reference.
    explicit SheetView(DesignerSession &session, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void setZoom(double zoom);
    void paintPage();
    double fittingDpi() const;

    DesignerSession &m_session;
    QScrollArea *m_area;
    QLabel *m_page;
    double m_dpi = 0; ///< of the picture; 0: fits the window
};
