#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

/// A SQL Server that goes wrong in a chosen way, or not at all: speaks just enough of its protocol
/// to let a client log in and ask.
class FakeSqlServer
{
public:
    enum class Fault
    {
        silent,         ///< takes the connection and never says a word
        silentOnQuery,  ///< lets the client log in, then answers no statement
        slowQuery,      ///< answers no statement, but calls it off when told to
        silentInResult, ///< sends columns and half a row, then nothing
        closesInResult, ///< the same, then closes
        closesWhenIdle, ///< closes when the client has logged in
        closesOnQuery,  ///< closes when a statement comes
        refusesLogin,   ///< closes in the middle of the login
        wrongPassword,  ///< refuses the login with the server's error
        halfHello,      ///< begins its first answer and does not end it
        foreign,        ///< speaks another protocol
        none,           ///< answers every statement with rows of every type
        violatesKey,    ///< answers every statement with a duplicate key error
    };

    explicit FakeSqlServer(Fault fault) : m_fault(fault), m_thread([this] { serve(); })
    {
        while (m_port == 0)
            std::this_thread::yield();
    }
    ~FakeSqlServer()
    {
        m_stop = true;
        m_thread.join();
    }
    FakeSqlServer(const FakeSqlServer &) = delete;
    FakeSqlServer &operator=(const FakeSqlServer &) = delete;

    /// "127.0.0.1,PORT"
    QString name() const { return QStringLiteral("127.0.0.1,%1").arg(m_port.load()); }

    /// The long text among its rows.
    static QString longText();

    /// What the last client logged in with, and the last statement it sent.
    QString password() const { return read(m_password); }
    QString statement() const { return read(m_statement); }

private:
    enum Packet : quint8
    {
        query = 0x01,
        answer = 0x04,
        attention = 0x06,
        login = 0x10,
        hello = 0x12
    };

    void serve();
    bool talk(QTcpSocket &client);
    QByteArray readPacket(QTcpSocket &client, quint8 &type);
    void reply(QTcpSocket &client, const QByteArray &tokens, bool whole = true);
    /// False: hang up.
    bool answerPacket(QTcpSocket &client, quint8 type, const QByteArray &packet);
    bool answerQuery(QTcpSocket &client);

    void keep(QString &place, const QString &text);
    QString read(const QString &place) const;

    Fault m_fault;
    QByteArray m_message; ///< packets of a request that is not whole yet; one client at a time
    mutable std::mutex m_mutex;
    QString m_password;
    QString m_statement;
    std::atomic<bool> m_stop = false;
    std::atomic<quint16> m_port = 0;
    std::thread m_thread;
};
