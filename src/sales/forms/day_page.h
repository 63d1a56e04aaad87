#pragma once

#include "sales/journal/day_end.h"

#include <QWidget>

#include <memory>

namespace Ui {
class DayPage;
}

/// The end of the day on the screen.
class DayPage final : public QWidget
{
    Q_OBJECT

public:
    explicit DayPage(DayEnd &day, QWidget *parent = nullptr);
    ~DayPage() override;

    void load();

private:
    void showDays(QDate from, QDate to);
    void readDays();
    void showReport();
    void showCounted();
    QString askPath(const QString &ending, const QString &kind);

    DayEnd &m_day;
    std::unique_ptr<Ui::DayPage> m_ui;
};
