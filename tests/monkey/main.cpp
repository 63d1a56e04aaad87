#include "app/rooms.h"
#include "monkey/hang_watch.h"
#include "monkey/monkey.h"
#include "platform/machine/process_locale.h"
#include "shell/forms/look.h"
#include "support/real_shop.h"
#include "support/test_machine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Prints into the shop's folder, whatever the machine has.
class OwnPrinters final : public Printers
{
public:
    explicit OwnPrinters(Printers &system) : m_system(system) {}

    QStringList names() const override { return {u"Kapalı"_s, kPdfPrinter.toString()}; }
    std::unique_ptr<PrintDocument> open(const QString &name, const PrinterSetup &setup) override
    {
        if (name == u"Kapalı")
            throw PrintError(u"Yazıcı kapalı."_s);
        return name == kPdfPrinter ? m_system.open(name, setup) : nullptr;
    }

private:
    Printers &m_system;
};

class NoAutostart final : public Autostart
{
public:
    bool set(bool) override { return true; }
};

QString fieldOf(RecordSet &rows, QStringView column)
{
    const QString text = rows.text(column);
    rows.moveNext();
    return text;
}

/// What a shop types: barcodes (scanned most), codes, words of names.
QStringList shopWords(RealShop &shop)
{
    constexpr int most = 60;
    QStringList words{u"GID.00"_s, u"KRT."_s};
    shop.open();
    RecordSet numbers = shop.program.company().execute(u"select * from STKBARKOD"_s);
    while (!numbers.eof() && words.size() < most)
        words += fieldOf(numbers, u"STKBARKOD");
    RecordSet cards = shop.program.company().execute(u"select * from STKKART"_s);
    for (int i = 0; i < most / 4 && !cards.eof(); ++i) {
        words += cards.text(u"STKKOD");
        words += fieldOf(cards, u"STKCINSI").section(u' ', 0, 0);
    }
    return words;
}

/// One start of the program to its end; what was lost, "" when nothing was.
QString live(const QString &folder, Luck &luck, Hands &hands, StepLog &log, Run &run)
{
    RealMachine machine(folder); // its fakes are not used
    AwayHost host(machine.host);
    OwnPrinters printers(machine.printers);
    GoodsWatch goods;
    WatchedPrompt prompt(goods, log, run);
    Program program(
        {host, machine.db, machine.keys, printers, machine.sounds, machine.clock, prompt}, folder);
    if (luck.chance(70)) {
        QFile::remove(program.path(settings::kFile));
        createSettingsFile(program.files());
    }
    NoAutostart autostart;
    const bool tray = luck.chance(50);
    Monkey monkey(luck, hands, host, goods, log, run, tray);
    Rooms rooms(program, autostart, tray);
    log.line(u"life %1%2"_s.arg(++run.lives).arg(tray ? u" with a tray"_s : QString()));
    program.handle([&] { rooms.open(); });
    monkey.start();
    QApplication::exec();
    goods.posted(host.written());
    return monkey.stopped() ? QString() : goods.look(true) + goods.lifeEnded();
}

/// Qt's remarks belong to the step that caused them.
StepLog *remarks = nullptr;
void remark(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.contains(u"This plugin does not support"))
        remarks->line(u"      qt: "_s + text);
}

void tell(const Run &run)
{
    std::printf("%d steps, %lld s, %d lives\n", run.done, run.clock.elapsed() / 1000LL, run.lives);
    for (const auto &counts : {run.windows, run.answers})
        for (auto it = counts.cbegin(); it != counts.cend(); ++it)
            std::printf("  %-24s %d\n", qPrintable(it.key()), it.value());
}

} // namespace

int main(int argc, char *argv[])
{
    useTestMachine();
    if (QFileInfo(u"/dev/shm"_s).isWritable())
        qputenv("TMPDIR", "/dev/shm"); // the forms are tried, not the disk
    qputenv("QT_QPA_PLATFORM",
            "offscreen:configfile=" +
                sourcePath("/scripts/screen.json").toUtf8()); // of a shop's size
    QApplication app(argc, argv);
    useProgramLocale();
    applyLook(app);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Random keys, clicks and texts on the real forms."_s);
    parser.addHelpOption();
    parser.addOptions({{u"seconds"_s, u"Stops after N seconds."_s, u"N"_s, u"0"_s},
                       {u"steps"_s, u"Stops after N steps."_s, u"N"_s, u"0"_s},
                       {u"seed"_s, u"Repeats a run; none: a new one."_s, u"N"_s},
                       {u"log"_s, u"Leaves the steps in FILE."_s, u"FILE"_s, u"monkey.log"_s}});
    parser.process(app);
    const quint32 seed = parser.isSet(u"seed"_s) ? parser.value(u"seed"_s).toUInt()
                                                 : QRandomGenerator::global()->bounded(1'000'000U);
    StepLog log(QDir::current().absoluteFilePath(parser.value(u"log"_s)));
    std::printf("seed %u, steps in %s\n", seed, qPrintable(log.path()));
    std::fflush(stdout);
    remarks = &log;
    qInstallMessageHandler(remark);

    RealShop shop;
    QDir::setCurrent(shop.folder.path()); // names that the monkey types stay in it
    Luck luck(seed);
    Hands hands(luck, shopWords(shop));
    shop.program.bag.reset();
    shop.program.anabag.reset();

    Run run{parser.value(u"steps"_s).toInt(),
            parser.value(u"seconds"_s).toInt(),
            shop.folder.path(),
            0,
            0,
            {},
            {},
            {}};
    run.clock.start();
    const HangWatch watch;
    while (!run.over()) {
        const QString lost = live(shop.folder.path(), luck, hands, log, run);
        if (!lost.isEmpty()) {
            std::fprintf(stderr, "%s", qPrintable(lost));
            HangWatch::fail(3);
        }
    }
    qInstallMessageHandler(nullptr);
    tell(run);
    return 0;
}
