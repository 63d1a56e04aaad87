#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <memory>
#include <thread>

/// A SQL Server that goes wrong in a chosen way: speaks just enough of its protocol to let a client
/// log in and ask.
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
        closesOnQuery,  ///< closes when a statement comes
        refusesLogin,   ///< closes in the middle of the login
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
    void talk(QTcpSocket &client);
    QByteArray readPacket(QTcpSocket &client, quint8 &type);
    void reply(QTcpSocket &client, const QByteArray &tokens, bool whole = true);
    /// False: hang up.
    bool answerPacket(QTcpSocket &client, quint8 type);
    bool answerQuery(QTcpSocket &client);

    Fault m_fault;
    std::atomic<bool> m_stop = false;
    std::atomic<quint16> m_port = 0;
    std::thread m_thread;
};
