#pragma once

#include <QDialog>

/// All keys of the designer on one sheet.
class HelpSheet final : public QDialog
{
    Q_OBJECT

public:
    explicit HelpSheet(QWidget *parent = nullptr);
};
