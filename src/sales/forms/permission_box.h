#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class PermissionBox;
}

/// Asks the head of the shop for the settings password.
class PermissionBox final : public QDialog
{
    Q_OBJECT

public:
    /// `what` the cashier wants to do; `fits` says whether it is the password.
    PermissionBox(const QString &what, std::function<bool(const QString &)> fits,
                  QWidget *parent = nullptr);
    ~PermissionBox() override;

    void accept() override;

private:
    std::function<bool(const QString &)> m_fits;
    std::unique_ptr<Ui::PermissionBox> m_ui;
};
