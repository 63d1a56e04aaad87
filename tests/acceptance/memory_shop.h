#pragma once

#include "sales/journal/till_memory.h"
#include "support/real_shop.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

const QStringList kSale = {u"TEM.0011"_s, u"MNV.0011"_s, u"GID.0004"_s};

/// The end of the program, as far as a test can have it: no handler of the till catches it.
struct Killed
{};

/// Ends the program at a statement, before it has been done or behind it, or loses its answer; or
/// the statement waits for a lock until its time is over.
class DeadlyHost final : public HostConnection
{
public:
    explicit DeadlyHost(std::unique_ptr<HostConnection> host) : m_host(std::move(host)) {}

    int state() const override { return lost ? 0 : m_host->state(); }
    RecordSet execute(const QString &statement) override
    {
        const bool now = ++count == at;
        if (now && locked)
            throw HostError(HostError::kConnectionLost, u"kilitli"_s);
        if (now && !done)
            throw Killed();
        RecordSet rows = m_host->execute(statement);
        if (now && kills)
            throw Killed();
        if (now) {
            lost = true;
            throw HostError(HostError::kConnectionLost, u"kesildi"_s);
        }
        return rows;
    }

    int count = 0;
    int at = 0; ///< number of the statement, from 1; 0: never
    bool done = false;
    bool kills = true;
    bool locked = false;
    bool lost = false;

private:
    std::unique_ptr<HostConnection> m_host;
};

/// A journal on a disk that is full from a statement on.
class FullDisk final : public LocalDatabase
{
public:
    void open(const QString &path) override { m_file.open(path); }
    void close() override { m_file.close(); }
    RecordSet execute(const QString &statement) override
    {
        use(statement);
        return m_file.execute(statement);
    }
    RecordSet executeWith(const QString &statement, const QVariantList &values) override
    {
        use(statement);
        return m_file.executeWith(statement, values);
    }

    int left = -1; ///< statements; below 0: no end
    int again = 0; ///< as many more are taken when it has been full

private:
    void use(const QString &statement)
    {
        if (left == 0) {
            left = std::exchange(again, 0);
            throw HostError(HostError::kStatement, u"Disk dolu."_s, statement,
                            HostError::Cause::file);
        }
        left -= left > 0 ? 1 : 0;
    }

    SqliteDatabase m_file{std::chrono::milliseconds(200)};
};

/// The till with its memory on the folder of a shop; made anew for every start of the program.
struct Counter
{
    explicit Counter(RealShop &shop)
        : program(Ports{shop.host, shop.db, shop.keys, shop.printers, shop.sounds, shop.clock,
                        shop.prompt, &file},
                  shop.program.directory()),
          till(program), memory(program, till)
    {
        open();
        QObject::connect(&till.work(), &TillWork::boxWaits, &till.work(), &TillWork::openBoxes);
        QObject::connect(&till, &TillSession::noticed,
                         [this](const QString &text, Notice) { notice = text; });
        till.load();
        QCoreApplication::processEvents(); // the greeting comes when the form shows
        till.toggleEntryMode();
    }

    void open()
    {
        HostLink(program).sqlbaglan();
        auto deadly = std::make_unique<DeadlyHost>(std::move(program.bag));
        host = deadly.get();
        program.bag = std::move(deadly);
    }

    void sell(const QStringList &codes)
    {
        for (const QString &code : codes)
            till.enterCode(code);
    }

    /// At a statement from now on, counted from 1.
    void dieAt(int at, bool done)
    {
        host->count = 0;
        host->at = at;
        host->done = done;
    }

    QStringList lines(int list)
    {
        QStringList all;
        for (const SaleLine &line : till.list(list).lines())
            all += line[SaleColumn::stockCode] + u' ' + line[SaleColumn::quantity];
        return all;
    }

    FullDisk file;
    Program program;
    TillSession till;
    TillMemory memory;
    QString notice;
    DeadlyHost *host = nullptr;
};

struct Memory : testing::Test
{
    Memory()
    {
        const OpenDatabase open(shop.db, shop.program.path(settings::kFile));
        shop.db.execute(u"Update yazici set yazdirma = '0' Where id ='1'"_s);
        QFile::copy(company, company + u".first"_s);
    }

    /// A ledger and a journal as on the first day.
    void startAnew()
    {
        for (const QString &part : {u""_s, u"-wal"_s, u"-shm"_s})
            QFile::remove(company + part);
        QFile::copy(company + u".first"_s, company);
        QFile::remove(journal);
    }

    /// Every row that sales write, sorted.
    QStringList ledger()
    {
        QStringList rows;
        const auto host = shop.connect();
        for (const QString &table : {u"STKKART"_s, u"EVRAKNO"_s, u"STKFIS"_s, u"STKHAR"_s,
                                     u"STKMIZDEGER"_s, u"CARFIS"_s, u"CARKART"_s, u"CARMIZDEGER"_s,
                                     u"CARHAR"_s, u"FATFIS"_s, u"FATHAR"_s, u"FATFISTOPLAM"_s}) {
            RecordSet found = host->execute(u"select * from "_s + table);
            for (; !found.eof(); found.moveNext()) {
                QStringList fields = {table};
                for (const QString &column : found.columns())
                    fields += found.text(column);
                rows += fields.join(u'|');
            }
        }
        rows.sort();
        return rows;
    }

    /// The ledger after two sales that nothing disturbed.
    QStringList undisturbed()
    {
        startAnew();
        Counter counter(shop);
        counter.sell(kSale);
        counter.dieAt(0, false);
        counter.till.post();
        statements = counter.host->count;
        counter.sell({kSale.first()});
        counter.till.post();
        return ledger();
    }

    RealShop shop;
    const QString company = shop.program.path(u"DEMOSIRKET.yerel");
    const QString journal = shop.program.path(u"kasa.dbs");
    int statements = 0; ///< of the posting of kSale
};
