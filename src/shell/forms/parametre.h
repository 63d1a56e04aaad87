#pragma once

#include <QDialog>
#include <QWidgetList>

#include <memory>

class SettingsSession;
struct DiagnosisTarget;
struct Settings;
QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Ui {
class parametre;
}

/// The settings dialog.
class parametre final : public QDialog
{
    Q_OBJECT

public:
    explicit parametre(SettingsSession &session, QWidget *parent = nullptr);
    ~parametre() override;

Q_SIGNALS:
    void receiptLayoutWanted();
    void setupWanted(); ///< the dialog has closed: the set-up writes what it shows
    void diagnosisWanted(const DiagnosisTarget &target); ///< as typed, nothing is saved

private:
    void yaziyukle();
    void yazyukle();
    void fillCodeLists();
    QWidgetList settingControls() const;
    void display(const Settings &values);
    Settings entered() const;
    void serverkaydet();
    void leaveForSetup();
    void connectSample(QComboBox *family, QComboBox *size, QLabel *sample, const QString &points);
    void connectColour(QPushButton *button, QLabel *box);
    void warn();

    std::unique_ptr<Ui::parametre> m_ui;
    SettingsSession &m_session;
    QString m_obstacle; ///< why nothing could be saved
};
