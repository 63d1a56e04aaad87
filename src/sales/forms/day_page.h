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

    /// Ends what takes long; false: there was nothing to end.
    bool stop();

Q_SIGNALS:
    void busyChanged(bool busy);

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void showDays(QDate from, QDate to);
    void readDays();
    void showReport();
    void showCounted();
    void readTyped();
    void compare();
    void setBusy(bool busy);
    QString askPath(const QString &ending, const QString &kind);

    DayEnd &m_day;
    std::unique_ptr<Ui::DayPage> m_ui;
};
