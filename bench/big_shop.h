#pragma once

#include "fakes/fake_ports.h"
#include "platform/demo/demo_shop.h"
#include "platform/host/engine_connector.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

/// A working folder whose company database holds `stocks` stocks, each with a barcode and three
/// prices; every two hundredth bears "ARANAN" in its name.
class BigShop
{
public:
    explicit BigShop(int stocks)
    {
        const QString text = m_folder.filePath(QStringLiteral("metin"));
        for (const char *part : {"ana", "sirket"}) {
            const QString name = QLatin1String(part);
            QDir().mkpath(text + QLatin1Char('/') + name);
            const QDir shipped(kDemoText.toString() + QLatin1Char('/') + name);
            for (const QString &file : shipped.entryList(QDir::Files))
                QFile::copy(shipped.filePath(file),
                            text + QLatin1Char('/') + name + QLatin1Char('/') + file);
        }
        writeStocks(text + QStringLiteral("/sirket/"), stocks);
        createDemoShop(directory(), QDate(2026, 3, 7), text);
    }

    QString directory() const { return m_folder.path(); }
    std::unique_ptr<HostConnection> openCompany() const
    {
        MemoryKeyFile keys;
        return EngineConnector(directory(), keys)
            .open(QStringLiteral("Server=(yerel);database=DEMOSIRKET;"));
    }
    static QString code(int stock) { return QStringLiteral("S%1").arg(stock, 6, 10, QChar(u'0')); }
    static QString barcode(int stock) { return QString::number(8690000000000LL + stock); }

private:
    class TableFile
    {
    public:
        TableFile(const QString &path, const char *columns) : m_file(path), m_out(&m_file)
        {
            QFile::setPermissions(path, QFile::permissions(path) | QFile::WriteOwner);
            m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
            m_out << columns << '\n';
        }
        QTextStream &out() { return m_out; }

    private:
        QFile m_file;
        QTextStream m_out;
    };

    static void writeStocks(const QString &folder, int stocks)
    {
        TableFile cards(folder + QStringLiteral("STKKART.txt"),
                        "STKKOD|STKCINSI|STKBIRIM|STKBIRIM2|STKBAKIYE|STKSYFTARIHI|STKSYFSAATI");
        TableFile barcodes(folder + QStringLiteral("STKBARKOD.txt"),
                           "STKBARKOD|STKBARSTKKOD|STKBARBRMNO|STKBARTIP");
        TableFile prices(folder + QStringLiteral("STKFIYAT.txt"),
                         "STKFIYSTKKOD|STKFIYNO|STKFIYTUTAR|STKFIYISKYUZ1|STKFIYISKYUZ2|"
                         "STKFIYISKYUZ3|STKFIYKDVNO");
        for (int i = 0; i < stocks; ++i) {
            cards.out() << code(i) << QStringLiteral("|Ürün çeşidi %1 ").arg(i)
                        << (i % 200 == 0 ? QStringLiteral("aranan") : QStringLiteral("sıradan"))
                        << "|ADET||10|07.03.2026|10:00:00\n";
            barcodes.out() << barcode(i) << '|' << code(i) << "|1|2\n";
            for (int number = 1; number <= 3; ++number)
                prices.out() << code(i) << '|' << number << '|' << i % 900 + number
                             << ",50|10|5|0|1\n";
        }
    }

    QTemporaryDir m_folder;
};
