#pragma once

#include <QDialog>

class DesignerSession;

/// The dialog of one element: what the panel shows of it, kept or dropped as a whole. Changes show
/// on the canvas at once.
class ElementDialog final : public QDialog
{
    Q_OBJECT

public:
    /// For the one selected element. `fresh`: it was put there just now and goes again when the
    /// dialog is cancelled. `session` is kept by reference.
    ElementDialog(DesignerSession &session, bool fresh, QWidget *parent = nullptr);

    void done(int result) override;

private:
    template <typename Page>
    void take(Page *page, const QString &title);

    DesignerSession &m_session;
};
