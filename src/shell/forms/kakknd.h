#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class kakknd;
}

/// The about box.
class kakknd final : public QDialog
{
    Q_OBJECT

public:
    explicit kakknd(QWidget *parent = nullptr);
    ~kakknd() override;

private:
    std::unique_ptr<Ui::kakknd> m_ui;
};
