#include "platform/demo/demo_shop.h"

#include <QFile>

#include <cstdio>
#include <exception>

/// Prints the script that loads the demo shop into a SQL Server: demo_sqlserver > demo.sql
int main()
{
    try {
        QFile out;
        const QByteArray script = demoSqlServerScript().toUtf8();
        const bool written = out.open(stdout, QIODevice::WriteOnly) &&
                             out.write(script) == script.size() && out.flush();
        return written ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
