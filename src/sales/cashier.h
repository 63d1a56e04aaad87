#pragma once

#include <QObject>
#include <QStringList>

#include <optional>
#include <vector>

class Program;

/// Who stands at the till.
struct Cashier
{
    QString code;
    QString name;

    friend bool operator==(const Cashier &, const Cashier &) = default;
};

/// Chooses the cashier from the host's personnel, by name or by personal code.
class CashierChoice final : public QObject
{
    Q_OBJECT

public:
    CashierChoice(Program &program, bool byCode, QObject *parent = nullptr);

    /// Reads the personnel. Throws HostError; the list is then empty.
    void load();

    bool byCode() const { return m_byCode; }
    QStringList names() const;

    /// The entry of the list at `row` is the cashier; other rows choose nobody.
    void perlistesec(int row);

    /// The first entry with exactly this personal code is the cashier. None: told, and rejected()
    /// asks for another try.
    void persifresec(const QString &personalCode);

Q_SIGNALS:
    void chosen(const Cashier &cashier);
    void rejected();

private:
    struct Entry
    {
        QString text;
        QString tag;

        QString element(qsizetype i) const;
    };

    Program &m_program;
    bool m_byCode;
    std::vector<Entry> m_entries;
};
