#pragma once

#include <QString>

/// What a connection string says.
struct ConnectionSettings
{
    QString server; ///< server name as the user typed it: "KASA1", "KASA1\SQL2", "KASA1,1433"
    QString user;
    QString password;
    QString database;

    friend bool operator==(const ConnectionSettings &, const ConnectionSettings &) = default;
};

/// "Server=…;Provider=SQLOLEDB;UID=…;PWD=…;database=…;". Nothing is quoted or escaped: a value with
/// a ";" in it reads back as something else.
QString connectionString(const ConnectionSettings &settings);

/// Reads a connection string. Names compare without regard to case and the last of a name wins;
/// blanks around names and values do not count; names nobody knows are passed over. Throws
/// HostError kConnectionLost for a piece that is not empty and has no "=" or no name.
ConnectionSettings parseConnectionString(QStringView text);

/// Where a server listens.
struct ServerAddress
{
    QString host;     ///< "localhost" for ".", "(local)" and the like
    QString instance; ///< empty: the default instance
    int port = 0;     ///< 1 to 65535; 0: not said

    friend bool operator==(const ServerAddress &, const ServerAddress &) = default;
};

/// Splits "host", "host\instance", "host,port" and "host\instance,port", each with or without
/// "tcp:" before it. Throws HostError kConnectionLost for an empty host or a port that is none.
ServerAddress parseServerName(QStringView name);
