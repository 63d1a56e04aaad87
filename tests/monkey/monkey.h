#pragma once

#include "common/prompt.h"
#include "monkey/away_host.h"
#include "monkey/goods_watch.h"
#include "monkey/hands.h"
#include "monkey/step_log.h"
#include "shell/forms/mesaj.h"

#include <QElapsedTimer>
#include <QMap>
#include <QObject>

class Rooms;
QT_BEGIN_NAMESPACE
class QFileDialog;
QT_END_NAMESPACE

/// How far a run goes and what it has met so far.
struct Run
{
    int steps = 0;              ///< 0: no limit
    int seconds = 0;            ///< 0: no limit
    QString folder;             ///< working folder of the shop
    int done = 0;               ///< steps
    int lives = 0;              ///< starts of the program
    QMap<QString, int> windows; ///< acts in each form
    QMap<QString, int> answers; ///< of message boxes
    QElapsedTimer clock;

    bool over() const
    {
        return (steps > 0 && done >= steps) || (seconds > 0 && clock.elapsed() > seconds * 1000LL);
    }
};

/// The real message boxes; says what was answered.
class WatchedPrompt final : public Prompt
{
public:
    WatchedPrompt(GoodsWatch &goods, StepLog &log, Run &run)
        : m_goods(goods), m_log(log), m_run(run)
    {}

    void warn(const QString &text, bool critical) override;
    bool confirm(const QString &text) override;

private:
    Answer open(const Message &message) override;
    void note(const QString &text, const QString &answer);

    WindowPrompt m_boxes;
    GoodsWatch &m_goods;
    StepLog &m_log;
    Run &m_run;
};

/// Uses the program for one life of it: one act at each turn of the event loop, in whatever dialog
/// that loop may be.
class Monkey final : public QObject
{
    Q_OBJECT

public:
    Monkey(Luck &luck, Hands &hands, AwayHost &host, GoodsWatch &goods, StepLog &log, Run &run,
           bool tray);

    void start();
    /// True when the monkey ended this life, not the program.
    bool stopped() const { return m_stopped; }

private:
    void step();
    void stop();
    Hands::Act choose();
    Hands::Act openForm();
    Hands::Act switchHost();
    Hands::Act closeWindow(QWidget &window);
    Hands::Act chooseFile(QFileDialog &dialog);
    void check();

    Luck &m_luck;
    Hands &m_hands;
    AwayHost &m_host;
    GoodsWatch &m_goods;
    StepLog &m_log;
    Run &m_run;
    bool m_tray;
    int m_depth = 0; ///< acts under way, each in a loop of the one before it
    int m_age = 0;   ///< steps of this life
    bool m_stopped = false;
};
