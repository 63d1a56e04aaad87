#pragma once

#include "common/program.h"
#include "platform/host/system_probe.h"
#include "shell/setup_printing.h"
#include "shell/setup_step.h"

#include <QObject>
#include <QPointer>

#include <optional>

class Forms;
class SetupForm;

/// The set-up and what it needs of the rooms that print.
class SetupRoom final : public QObject, public SetupPrinting
{
    Q_OBJECT

public:
    explicit SetupRoom(Program &program);
    ~SetupRoom() override;

    /// The first start: returns when the user has finished, or with nothing when he has not.
    std::optional<SetupWay> askFirst();

    /// Later, from the settings.
    void show(const Forms &forms);

    QStringList layouts(const QString &directory) const override;
    QString defaultLayout(const QString &directory) const override;
    QString printerOf(const QString &directory, const QString &layout) const override;
    bool setPrinter(const QString &directory, const QString &layout,
                    const QString &printer) override;
    bool setDefaultLayout(const QString &directory, const QString &layout) override;
    void printReceipt(const QString &printer) override;
    void printLabel(const QString &directory, const QString &layout,
                    const QString &printer) override;

Q_SIGNALS:
    void changed(); ///< settings and layouts are other ones now

private:
    Program &m_program;
    SystemProbe m_probe;
    QPointer<SetupForm> m_form;
};
