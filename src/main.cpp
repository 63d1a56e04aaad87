#include "app/rooms.h"
#include "app/setup_room.h"
#include "common/program.h"
#include "common/settings_database.h"
#include "platform/demo/demo_shop.h"
#include "platform/demo/shipped_files.h"
#include "platform/host/engine_connector.h"
#include "platform/machine/private_file.h"
#include "platform/machine/private_memory.h"
#include "platform/machine/process_locale.h"
#include "platform/machine/profile_key_file.h"
#include "platform/machine/single_instance.h"
#include "platform/machine/sqlite_database.h"
#include "platform/machine/system_autostart.h"
#include "platform/machine/system_clock.h"
#include "platform/machine/system_sounds.h"
#include "platform/printing/system_printers.h"
#include "shell/forms/look.h"
#include "shell/forms/mesaj.h"
#include "shell/settings_file.h"
#include "shell/setup_writing.h"
#include "tour/tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QScopeGuard>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The last net: an error that no handler caught is shown, and the program goes on.
class Application final : public QApplication
{
public:
    using QApplication::QApplication;

    /// Null: nobody is there to tell.
    void reportTo(Program *program) { m_program = program; }

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception &error) {
            if (!m_program)
                throw;
            m_program->report(error);
            return true;
        }
    }

private:
    Program *m_program = nullptr;
};

/// Where the time goes until the first window can be used; shown with
/// QT_LOGGING_RULES=tezgah.start=true, read by bench/start.sh.
Q_LOGGING_CATEGORY(startLog, "tezgah.start", QtWarningMsg)

class StartTimes
{
public:
    StartTimes() { m_timer.start(); }
    void reached(const char *milestone) const
    {
        qCInfo(startLog, "%s %.1f ms", milestone,
               static_cast<double>(m_timer.nsecsElapsed()) * 1e-6);
    }

private:
    QElapsedTimer m_timer;
};

/// Command line of the program.
struct Options
{
    QString directory; ///< working folder, "" = the current one
    QString tour;      ///< where the tour leaves its pictures, "" = no tour
    bool demo = false; ///< a folder without settings gets the demo shop, nobody is asked
};

Options readOptions(const QCoreApplication &app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Küçük dükkânlar için barkod etiketi ve hızlı satış."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption directory(
        u"directory"_s, u"Geçerli klasör yerine DIR klasöründe çalışır."_s, u"DIR"_s);
    const QCommandLineOption tour(
        u"tour"_s, u"Formları kendisi kullanır; resimlerini ve çıktıları DIR klasörüne bırakır."_s,
        u"DIR"_s);
    const QCommandLineOption demo(u"demo"_s,
                                  u"Ayarı olmayan klasörde sormadan örnek dükkânı kurar."_s);
    parser.addOptions({directory, tour, demo});
    parser.process(app);
    return {parser.value(directory), parser.value(tour), parser.isSet(demo)};
}

void nameApplication()
{
    QCoreApplication::setApplicationName(u"tezgah"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TEZGAH_VERSION));
}

/// Help and version are told without a display too.
bool onlyAsks(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i)
        for (const char *word : {"--help", "-h", "--help-all", "--version", "-v"})
            if (qstrcmp(argv[i], word) == 0)
                return true;
    return false;
}

/// The settings hold passwords: the file, its journal and the damaged ones that were kept.
void hideSettings(const QString &directory)
{
    const QDir folder(directory);
    for (const QString &name : folder.entryList({u"data.dbs*"_s}, QDir::Files))
        makePrivate(folder.filePath(name));
}

/// Whether somebody sits before the program who can answer.
bool mayAsk(const Options &options)
{
    const QString platform = QGuiApplication::platformName();
    return !options.demo && options.tour.isEmpty() && platform != u"offscreen"_s &&
           platform != u"minimal"_s;
}

/// A working folder without settings is set up. The settings come last: as long as they are
/// missing, the next start tries again. False when the user would rather not now.
bool prepareFolder(Program &program, bool ask)
{
    finishSetup(program.directory());
    clearUnfinished(program.directory());
    hideSettings(program.directory());
    if (QFile::exists(program.path(settings::kFile))) {
        const QString told = repairSettingsFile(program.files());
        if (!told.isEmpty())
            program.caution(told);
        return true;
    }
    copyShippedFiles(program.directory());
    const auto way = ask ? SetupRoom(program).askFirst() : SetupWay::demo;
    if (!way)
        return false;
    const bool demo = *way == SetupWay::demo;
    if (demo || isEmbedded(settings::read(program.files(), {u"server"}).server.server))
        createDemoShop(program.directory(), program.clock.now().date());
    if (demo)
        createSettingsFile(program.files());
    return true;
}

int run(Application &app, const Options &options, const StartTimes &times)
{
    const QString startedIn = QDir::currentPath();
    const QString tourFolder =
        options.tour.isEmpty() ? QString() : QDir(options.tour).absolutePath();
    if (!options.directory.isEmpty() && !QDir::setCurrent(options.directory)) {
        const QString told = u"Klasör açılamadı: %1"_s.arg(options.directory);
        QTextStream(stderr) << told << Qt::endl;
        if (options.tour.isEmpty())
            WindowPrompt().warn(told, true);
        return 2;
    }
    SingleInstance instance(tourFolder.isEmpty() ? u"tezgah"_s : u"tezgah-tour"_s);
    if (!instance.first()) {
        instance.tellFirst();
        return tourFolder.isEmpty() ? 0 : 1;
    }

    const QString directory = QDir::currentPath();
    ProfileKeyFile keys;
    EngineConnector host(directory, keys);
    SqliteDatabase db;
    SqliteDatabase journal;
    SystemClock clock;
    SystemPrinters printers(directory, clock);
    SystemSounds sounds;
    WindowPrompt prompt;
    SystemAutostart autostart(directory);
    Program program({host, db, keys, printers, sounds, clock, prompt, &journal}, directory);
    Rooms *opened = nullptr;
    instance.onFurtherStart([&opened] {
        if (opened)
            opened->showLastWindow();
        else if (QWidget *asking = QApplication::activeModalWidget())
            asking->activateWindow();
    });
    app.reportTo(&program);
    const auto gone = qScopeGuard([&app] { app.reportTo(nullptr); }); // the program ends first
    try {
        if (!prepareFolder(program, mayAsk(options)))
            return 0;
    } catch (const std::exception &error) {
        program.report(error);
        return 1;
    }

    times.reached("folder");

    Rooms rooms(program, autostart);
    opened = &rooms;
    program.handle([&] { rooms.open(); });
    std::unique_ptr<Tour> tour; // starts when a server that takes its time has been opened
    if (!tourFolder.isEmpty())
        tour = std::make_unique<Tour>(rooms, program, tourFolder);
    times.reached("host");
    QTimer::singleShot(0, [&times] { times.reached("window"); });
    const int result = QApplication::exec();
    if (tour)
        return tour->succeeded() ? result : 1;
    if (rooms.restartWanted()) {
        instance.release();
        if (!QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                     app.arguments().mid(1), startedIn))
            program.warn(u"Program yeniden başlatılamadı; elle başlatın."_s);
    }
    return result;
}

/// The toolkit's own words. Its file has those for kinds of files ("Folder") under the name of the
/// part that they stood in once.
class ToolkitWords final : public QTranslator
{
public:
    QString translate(const char *context, const char *text, const char *comment,
                      int n) const override
    {
        const bool isFileKind = qstrcmp(context, "QAbstractFileIconProvider") == 0;
        return QTranslator::translate(isFileKind ? "QFileDialog" : context, text, comment, n);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    const StartTimes times;
    keepMemoryPrivate();
    QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
    nameApplication();
    if (onlyAsks(argc, argv)) {
        const QCoreApplication app(argc, argv);
        readOptions(app);
        return 0;
    }
    Application app(argc, argv);
    useProgramLocale();
    ToolkitWords words;
    if (words.load(u"qtbase_tr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&words);
    applyLook(app);
    times.reached("qt");
    return run(app, readOptions(app), times);
}
