#pragma once

#include "big_shop.h"
#include "support/test_server.h"

/// The stocks of a BigShop on the server that TEZGAH_TEST_ODBC names, in a database of their own.
class ServerShop
{
public:
    explicit ServerShop(int stocks) : m_name(m_server.newName())
    {
        // The rows are counted out by the server: digits joined with digits.
        QString digits = QStringLiteral("CREATE TABLE D (D int)\nGO\n");
        for (int digit = 0; digit < 10; ++digit)
            digits += QStringLiteral("INSERT INTO D values (%1)\nGO\n").arg(digit);
        m_server.run(QStringLiteral("CREATE DATABASE %1\nGO\n").arg(m_name));
        const auto host = open(port());
        for (const QString &batch :
             (digits + tables() + rows(stocks)).split(QStringLiteral("\nGO\n"), Qt::SkipEmptyParts))
            host->execute(batch);
    }

    /// Opens the database by a port of this machine.
    std::unique_ptr<HostConnection> open(std::uint16_t port) const
    {
        ConnectionSettings settings = m_server.login(m_name);
        settings.server = QStringLiteral("127.0.0.1,%1").arg(port);
        return m_connector.open(connectionString(settings));
    }
    std::uint16_t port() const { return static_cast<std::uint16_t>(address().port); }

private:
    static ServerAddress address() { return parseServerName(testLogin()->server); }

    static QString tables()
    {
        return QStringLiteral(
            "CREATE TABLE STKKART (STKKOD varchar(20) NOT NULL PRIMARY KEY, STKCINSI varchar(60), "
            "STKBIRIM varchar(10), STKBIRIM2 varchar(10), STKBAKIYE float)\nGO\n"
            "CREATE TABLE STKBARKOD (STKBARKOD varchar(20) NOT NULL PRIMARY KEY, STKBARSTKKOD "
            "varchar(20), STKBARBRMNO int, STKBARTIP int)\nGO\n"
            "CREATE INDEX BAR ON STKBARKOD (STKBARSTKKOD)\nGO\n"
            "CREATE TABLE STKFIYAT (STKFIYSTKKOD varchar(20), STKFIYNO int, STKFIYTUTAR float, "
            "STKFIYISKYUZ1 float, STKFIYISKYUZ2 float, STKFIYISKYUZ3 float)\nGO\n"
            "CREATE INDEX FIY ON STKFIYAT (STKFIYSTKKOD)\nGO\n"
            "CREATE TABLE N (N int)\nGO\n");
    }
    /// A thousand stocks at a time: a statement has five seconds, however busy the machine is.
    static QString rows(int stocks)
    {
        constexpr int slice = 1'000;
        QString script;
        for (int first = 0; first < stocks; first += slice)
            script +=
                QStringLiteral(
                    "INSERT INTO N SELECT %1+C.D*100+E.D*10+F.D FROM D C, D E, D F "
                    "where %1+C.D*100+E.D*10+F.D<%2\nGO\n"
                    "INSERT INTO STKKART SELECT 'S'+right('000000'+cast(N as varchar(6)),6), "
                    "'Mal '+cast(N as varchar(6))+case when N%200=0 then ' aranan' else ' sade' "
                    "end, 'ADET', '', 10 FROM N where N>=%1\nGO\n"
                    "INSERT INTO STKBARKOD SELECT '86900'+right('00000000'+cast(N as "
                    "varchar(8)),8), 'S'+right('000000'+cast(N as varchar(6)),6), 1, 2 FROM N "
                    "where N>=%1\nGO\n"
                    "INSERT INTO STKFIYAT SELECT 'S'+right('000000'+cast(N as varchar(6)),6), "
                    "D+1, N%900+0.5, 10, 5, 0 FROM N, D where D<3 and N>=%1\nGO\n")
                    .arg(first)
                    .arg(stocks);
        return script;
    }

    QTemporaryDir m_folder;
    MemoryKeyFile m_keys;
    mutable EngineConnector m_connector{m_folder.path(), m_keys};
    TestServer m_server{m_connector, testLogin().value()};
    QString m_name;
};
