#pragma once

#include "common/code_list.h"
#include "common/program.h"
#include "common/settings.h"

#include <QObject>

/// The code lists of the settings dialog, filled from the company database.
struct ParameterLists
{
    CodeList depots;       ///< list `dep`
    CodeList priceTypes;   ///< lists `fytp`, `br1fyt`, `br2fyt`
    CodeList stockSlips;   ///< list `stkfistip`
    CodeList customers;    ///< list `cr`
    CodeList accountSlips; ///< list `crfistip`
    CodeList invoiceTypes; ///< list `ftfistip`
};

/// Reads and saves the settings for the dialog `parametre`.
class SettingsSession : public QObject
{
    Q_OBJECT

public:
    explicit SettingsSession(Program &program, QObject *parent = nullptr);

    /// Reads everything, in this order: oku(), sqloku() (which ends with oku1()). Rows and lists
    /// that cannot be read leave their design values; the VAT rate is not read, and saving without
    /// typing one stores its design value.
    void load();

    const Settings &values() const { return m_values; }
    const ParameterLists &lists() const { return m_lists; }
    QStringList printers() const { return m_program.printers.names(); }

    /// What of these values would not be saved or would not work, in words for the user: saving
    /// itself reports nothing.
    static QStringList warnings(const Settings &values);

    /// Why nothing could be saved in the working folder (read-only, disk full, file in use), ""
    /// when it can. The dialog says so when it opens, before anything is typed: saving itself
    /// reports nothing.
    QString obstacle() const;

    /// Asks what to do with a password that has lower-case letters, which the login never accepts,
    /// and puts it in capitals. False when the user would rather type another.
    bool settlePassword(Settings &values);

    /// Asks whether what was typed and not saved may be dropped; true when nothing was.
    bool mayDrop(const Settings &entered);

    /// Saves all tables, one statement each; one that fails does not stop the rest and is not
    /// reported. Emits saved().
    void serverkaydet(const Settings &values);

Q_SIGNALS:
    void saved(); ///< the stock list reloads its settings

private:
    void oku();
    void sqloku();
    void oku1();

    Program &m_program;
    Settings m_values;
    ParameterLists m_lists;
};
