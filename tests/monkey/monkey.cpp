#include "monkey/monkey.h"

#include "monkey/hang_watch.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMainWindow>
#include <QMenu>
#include <QScopeGuard>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// A life ends here, so that a shop that has locked itself out is set up anew.
constexpr int kLongLife = 4000; ///< steps

/// Entries of the main menu that end the program; the connection dialog does when there is one.
const QStringList kWaysOut = {u"cikis"_s, u"sqlbag"_s};

/// Entries of the main menu and its submenus.
QList<QAction *> menuEntries()
{
    QList<QAction *> entries;
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (window->inherits("strt"))
            for (QAction *entry : window->findChildren<QAction *>())
                if (!entry->isSeparator() && !entry->menu())
                    entries += entry;
    return entries;
}

} // namespace

// ---- message boxes

Answer WatchedPrompt::open(const Message &message)
{
    m_log.line(u"      box: %1"_s.arg(message.text));
    const Answer answer = m_boxes.show(message);
    const bool yes = answer == Answer::yes;
    m_goods.answered(message.text, yes);
    note(message.text, yes ? u"EVET"_s : answer == Answer::no ? u"HAYIR"_s : u"closed"_s);
    return answer;
}

void WatchedPrompt::warn(const QString &text, bool critical)
{
    m_log.line(u"      warning: %1"_s.arg(text));
    m_boxes.warn(text, critical);
    note(text, u"told"_s);
}

bool WatchedPrompt::confirm(const QString &text)
{
    m_log.line(u"      question: %1"_s.arg(text));
    const bool yes = m_boxes.confirm(text);
    m_goods.answered(text, yes);
    note(text, yes ? u"Evet"_s : u"Hayır"_s);
    return yes;
}

void WatchedPrompt::note(const QString &text, const QString &answer)
{
    ++m_run.answers[answer];
    m_log.line(u"      answered %1: %2"_s.arg(answer, text.left(40)));
}

// ---- the monkey

Monkey::Monkey(Luck &luck, Hands &hands, AwayHost &host, GoodsWatch &goods, StepLog &log, Run &run,
               bool tray)
    : m_luck(luck), m_hands(hands), m_host(host), m_goods(goods), m_log(log), m_run(run),
      m_tray(tray)
{}

void Monkey::start()
{
    m_host.setMode(AwayHost::Mode::there);
    QTimer::singleShot(0, this, &Monkey::step);
}

/// The next step is called for before this one acts: it comes in the loop of a dialog that this one
/// opens, or after it.
void Monkey::step()
{
    constexpr int pauses[] = {0, 0, 0, 0, 0, 1, 5, 20, 120}; // milliseconds
    HangWatch::beat();
    if (m_run.over() || m_age++ > kLongLife)
        return stop();
    QTimer::singleShot(m_luck.pick(pauses), this, &Monkey::step);
    ++m_run.done;
    check();
    const Hands::Act act = choose();
    m_log.line(u"%1 %2 [%3]"_s.arg(m_run.done).arg(m_depth).arg(act.told));
    ++m_depth;
    const auto out = qScopeGuard([this, there = QPointer(this)] {
        if (there)
            --m_depth;
    });
    act.act();
}

void Monkey::stop()
{
    m_stopped = true;
    QCoreApplication::exit(0);
}

void Monkey::check()
{
    m_goods.posted(m_host.written());
    const QString lost = m_goods.look(m_depth == 0 && QThread::currentThread()->loopLevel() == 1);
    if (lost.isEmpty())
        return;
    m_log.line(lost);
    std::fprintf(stderr, "%s", qPrintable(lost));
    HangWatch::fail(3);
}

Hands::Act Monkey::choose()
{
    if (m_luck.chance(m_host.mode() == AwayHost::Mode::there ? 1 : 12))
        return switchHost();
    QWidget *const window = m_hands.window();
    const bool menu =
        m_tray || !QApplication::activeModalWidget(); // a dialog does not hold the tray
    if (!window || (menu && m_luck.chance(2)))
        return openForm();
    ++m_run.windows[QString::fromLatin1(window->metaObject()->className())];
    if (auto *files = qobject_cast<QFileDialog *>(window))
        return chooseFile(*files);
    const int luck = m_luck.below(100);
    if (luck < 45)
        return m_hands.click(*window);
    if (luck < 70)
        return m_hands.key();
    if (luck < 97)
        return m_hands.text();
    return luck < 99 ? closeWindow(*window) : m_hands.resize(*window);
}

Hands::Act Monkey::openForm()
{
    // The ways out are taken now and then only: a long life gathers goods.
    QList<QAction *> entries = menuEntries();
    entries.removeIf([this](const QAction *entry) {
        return kWaysOut.contains(entry->objectName()) && !m_luck.chance(10);
    });
    if (entries.isEmpty())
        return {u"wait"_s, [] {}};
    QAction *entry = m_luck.pick(entries);
    return {u"menu "_s + entry->objectName(), [entry = QPointer(entry)] {
                if (entry)
                    entry->trigger();
            }};
}

Hands::Act Monkey::switchHost()
{
    const auto mode = m_host.mode() != AwayHost::Mode::there
                          ? AwayHost::Mode::there
                          : static_cast<AwayHost::Mode>(m_luck.below(AwayHost::kModes));
    return {u"host %1"_s.arg(static_cast<int>(mode)), [this, mode] { m_host.setMode(mode); }};
}

Hands::Act Monkey::closeWindow(QWidget &window)
{
    return {u"close "_s + QString::fromLatin1(window.metaObject()->className()),
            [handle = QPointer(window.windowHandle())] {
                if (handle)
                    handle->close();
            }};
}

/// Files are only ever named inside the working folder; the buttons of a file dialog can delete.
Hands::Act Monkey::chooseFile(QFileDialog &dialog)
{
    const bool accept = m_luck.chance(50);
    const QString name = m_run.folder + u"/monkey.ayr"_s;
    return {u"file dialog "_s + (accept ? u"accept"_s : u"reject"_s),
            [files = QPointer<QDialog>(&dialog), accept, name] {
                if (!files)
                    return;
                if (accept)
                    static_cast<QFileDialog *>(files.data())->selectFile(name);
                files->done(accept ? QDialog::Accepted : QDialog::Rejected);
            }};
}
