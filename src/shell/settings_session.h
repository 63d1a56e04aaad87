#pragma once

#include "common/code_list.h"
#include "common/program.h"

#include <QObject>

/// What the settings dialog shows and saves, named after its controls. The values here are the
/// design values that stay when a row is missing.
struct ParameterValues
{
    QString kdv = QStringLiteral("20"); ///< never loaded: saving without typing stores this
    QString yazici;
    QString lgpass;
    QString kladi;
    QString pass;
    QString srvadi;
    QString sqladi;
    QString mastersql;
    QString instance;
    QString br1fyt; ///< text shown
    QString br2fyt;
    QString bsl;
    QString fnt;
    QString sz;

    // Shown, but kept by the accounting side: this dialog never writes them.
    QString dep;
    QString fytp;
    QString cr;
    QString stkfistip;
    QString crfistip;
    QString ftfistip;

    int br1fytIndex = -1; ///< selected position, −1 = none
    int br2fytIndex = -1;
    int yzrnk = 0; ///< colours 0x00BBGGRR
    int renkl = 0xFFFFFF;
    int renkl1 = 0xFAF8F1;
    int stl = 0; ///< 0 normal, 1 bold, 2 italic, 3 bold italic

    bool uses1 = false;
    bool uses2 = false;
    bool fisyazdir = false;
    bool Check1 = false;
    bool c1 = false;
    bool c2 = false;
    bool c3 = false;
    bool pers = false;
};

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
    /// that cannot be read leave their design values.
    void load();

    const ParameterValues &values() const { return m_values; }
    const ParameterLists &lists() const { return m_lists; }
    QStringList printers() const { return m_program.printers.names(); }

    /// What of these values would not be saved or would not work, in words for the user: saving
    /// itself reports nothing.
    static QStringList warnings(const ParameterValues &values);

    /// Why nothing could be saved in the working folder (read-only, disk full), "" when it can. The
    /// dialog says so when it opens, before anything is typed: saving itself reports nothing.
    QString obstacle() const;

    /// Saves all tables, one statement each; one that fails does not stop the rest and is not
    /// reported. Emits saved().
    void serverkaydet(const ParameterValues &values);

Q_SIGNALS:
    void saved(); ///< the stock list reloads its settings

private:
    void oku();
    void sqloku();
    void oku1();
    QStringList statements(const ParameterValues &v) const;

    Program &m_program;
    ParameterValues m_values;
    ParameterLists m_lists;
    QString m_br1code; ///< codes as stored
    QString m_br2code;
};
