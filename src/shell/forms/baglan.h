#pragma once

#include <QDialog>
#include <QTimer>

#include <memory>

class HostLink;
QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

namespace Ui {
class baglan;
}

/// The connection dialog, shown while the host database cannot be reached. It unloads itself when
/// the master connection is open; when it unloads, for whatever reason, the program ends.
class baglan final : public QDialog
{
    Q_OBJECT

public:
    explicit baglan(HostLink &link, QWidget *parent = nullptr);
    ~baglan() override;

    /// Hidden until the program gives it the main menu.
    QToolButton *menuButton() const;

Q_SIGNALS:
    void loginWanted();
    void diagnosisWanted();
    void unloaded();

protected:
    void done(int result) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void showState();
    void tick();
    void connectToHost();

    std::unique_ptr<Ui::baglan> m_ui;
    HostLink &m_link;
    QTimer m_timer;
    bool m_unloaded = false;
};
