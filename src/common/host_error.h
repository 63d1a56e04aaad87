#pragma once

#include <QString>

#include <stdexcept>

/// A statement or connection that failed on a database.
class HostError : public std::runtime_error
{
public:
    /// Error numbers as the shop's other programs show them for the same faults.
    static constexpr int kConnectionLost = -2147467259; ///< not reached, lost, or timed out
    static constexpr int kStatement = -2147217900;      ///< the server refused the statement
    static constexpr int kDuplicate = -2147217873;      ///< a key or rule of the table was violated
    static constexpr int kNoColumn = 3265;              ///< a column the result does not have
    static constexpr int kNoRow = 3021;                 ///< read past the end of the result
    static constexpr int kType = 13;                    ///< text where a number was needed

    /// Why, as far as the server, its driver or the file told it: what the number does not say.
    enum class Cause
    {
        unknown,
        noDriver,   ///< this machine cannot speak with a server
        encryption, ///< driver and server did not agree on one
        login,      ///< user or password refused
        database,   ///< not there, or closed to this user
        right,      ///< the user may not
        noTable,    ///< a table or column is not there
        silent,     ///< no answer in time
        file,       ///< a database file that cannot be used now: locked, no rights, disk full
        damaged     ///< a file that is no database or a broken one
    };

    /// `text`: what the engine said; `statement`: the statement it was said of, may be empty.
    HostError(int number, const QString &text, const QString &statement = {},
              Cause cause = Cause::unknown)
        : std::runtime_error(text.toStdString()), m_number(number), m_statement(statement),
          m_cause(cause)
    {}

    int number() const { return m_number; }
    Cause cause() const { return m_cause; }
    QString text() const { return QString::fromUtf8(what()); }
    const QString &statement() const { return m_statement; }
    bool connectionLost() const { return m_number == kConnectionLost; }

private:
    int m_number;
    QString m_statement;
    Cause m_cause;
};
