#pragma once

#include "common/host_error.h"
#include "common/program.h"
#include "fakes/recording_printers.h"

#include <QHash>
#include <QMap>
#include <QStringList>

#include <functional>
#include <vector>

/// A host that records every statement and answers from a script; statements nobody scripted give
/// no rows. With `failOn` a statement can be made to fail.
class RecordingHost final : public HostConnection
{
public:
    int state() const override { return open ? 1 : 0; }
    RecordSet execute(const QString &statement) override
    {
        statements += statement;
        if (failOn)
            if (const auto error = failOn(statement))
                throw HostError(*error, QStringLiteral("test"), statement);
        return answers.value(statement);
    }

    bool open = true;
    QStringList statements;
    QHash<QString, RecordSet> answers;
    std::function<std::optional<int>(const QString &)> failOn;
};

/// Hands out RecordingHosts, or refuses.
class ScriptedConnector final : public HostConnector
{
public:
    std::unique_ptr<HostConnection> open(const QString &connectionString) override
    {
        opened += connectionString;
        for (const QString &refused : refuse)
            if (connectionString.contains(refused))
                throw HostError(HostError::kConnectionLost, QStringLiteral("refused"));
        auto host = std::make_unique<RecordingHost>();
        host->answers = answers;
        return host;
    }

    QStringList opened;
    QStringList refuse; ///< connection strings containing one of these do not open
    QHash<QString, RecordSet> answers;
};

/// A settings database in memory: tables of one row; records every statement.
class RecordingDatabase final : public LocalDatabase
{
public:
    void open(const QString &path) override { opened += path; }
    RecordSet execute(const QString &statement) override
    {
        statements += statement;
        if (failOn && failOn(statement))
            throw HostError(HostError::kStatement, QStringLiteral("test"), statement);
        return answers.value(statement);
    }
    RecordSet executeWith(const QString &statement, const QVariantList &) override
    {
        return execute(statement);
    }
    void close() override { ++closed; }

    /// Scripts "select * from TABLE where id='1'".
    void setRow(const QString &table, const QMap<QString, QString> &columns)
    {
        RecordSet::Row row;
        for (const QString &value : columns)
            row.emplace_back(value);
        answers.insert(QStringLiteral("select * from %1 where id='1'").arg(table),
                       RecordSet(columns.keys(), {row}));
    }

    QStringList opened;
    int closed = 0;
    QStringList statements;
    QHash<QString, RecordSet> answers;
    std::function<bool(const QString &)> failOn;
};

/// Key files in memory, with the limits of the real ones left out.
class MemoryKeyFile final : public KeyFile
{
public:
    QString read(const QString &section, const QString &key, const QString &file) override
    {
        return values.value(name(section, key, file));
    }
    bool write(const QString &section, const QString &key, const QString &value,
               const QString &file) override
    {
        values.insert(name(section, key, file), value);
        return writable;
    }
    bool rewrite(const QString &file, const std::vector<KeyEntry> &entries) override
    {
        values.removeIf([&](auto it) { return it.key().startsWith(file + QChar(u'|')); });
        for (const KeyEntry &entry : entries)
            values.insert(name(entry.section, entry.key, file), entry.value);
        return writable;
    }

    bool writable = true;
    QMap<QString, QString> values; ///< "file|section|key" in lower case → value

private:
    static QString name(const QString &section, const QString &key, const QString &file)
    {
        return file + QChar(u'|') + section.toLower() + QChar(u'|') + key.toLower();
    }
};

class RecordingSounds final : public Sounds
{
public:
    void play(const QString &path) override { played += path; }
    QStringList played;
};

class FixedClock final : public Clock
{
public:
    QDateTime now() const override { return moment; }
    QDateTime moment{QDate(2026, 3, 7), QTime(14, 5)};
};

/// Answers message boxes from a list (then with "no") and keeps what was asked.
class ScriptedPrompt final : public Prompt
{
public:
    void warn(const QString &text, bool) override { warned += text; }
    bool confirm(const QString &text) override
    {
        asked += text;
        return confirmWith;
    }

    std::vector<Message> shown;
    std::function<void()> onShow; ///< what the user does while a box is open
    std::vector<Answer> answers;
    QStringList warned;
    QStringList asked;
    bool confirmWith = false;

private:
    Answer open(const Message &message) override
    {
        shown.push_back(message);
        if (onShow)
            onShow();
        if (answers.empty())
            return Answer::no;
        const Answer next = answers.front();
        answers.erase(answers.begin());
        return next;
    }
};

/// A whole machine of fakes and a program on it.
struct FakeMachine
{
    /// `directory`: the working folder; the default one does not exist.
    explicit FakeMachine(const QString &directory = QStringLiteral("/shop"))
        : program(Ports{connector, db, keys, printers, sounds, clock, prompt}, directory)
    {}

    ScriptedConnector connector;
    RecordingDatabase db;
    MemoryKeyFile keys;
    RecordingPrinters printers;
    RecordingSounds sounds;
    FixedClock clock;
    ScriptedPrompt prompt;
    Program program;

    /// Opens the company connection on a recording host and returns it.
    RecordingHost &openCompany()
    {
        auto host = std::make_unique<RecordingHost>();
        RecordingHost &recorder = *host;
        program.bag = std::move(host);
        return recorder;
    }
};
