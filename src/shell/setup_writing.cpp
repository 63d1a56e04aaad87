#include "shell/setup_writing.h"

#include "common/file_batch.h"
#include "common/program.h"
#include "common/settings_database.h"
#include "shell/setup_printing.h"
#include "shell/setup_session.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Reading a settings file that is not there would make one.
bool hasSettings(const Program &program)
{
    return QFile::exists(program.path(settings::kFile));
}

Settings ownSettings(const Program &program)
{
    return hasSettings(program) ? settings::read(program.files(), {u"liste", u"olcu"}) : Settings();
}

/// A copy of today's settings; at the first start there are none.
void takeOwnSettings(Program &program, FileBatch &batch)
{
    if (!hasSettings(program))
        return;
    const QString file = program.path(settings::kFile);
    {
        OpenDatabase db(program.db, file);
        db.execute(u"begin immediate"_s); // not while another program writes
        db.execute(u"rollback"_s);
    }
    copyDatabase(program.db, file, settings::kFile, batch);
}

/// What belongs to this machine stays its own.
Settings settingsFor(const Program &program, const SetupAnswers &answers)
{
    const Settings own = ownSettings(program);
    Settings values = answers.settings;
    if (answers.other) {
        values = answers.other->settings;
        values.yazici = answers.settings.yazici;
        values.liste.winac = own.liste.winac;
    }
    values.olcu = own.olcu;
    for (const CodeQuestion &question : codeQuestions()) // the till's statements do not escape them
        (values.stok.*question.name).replace(u'\'', u'’');
    return values;
}

void writeSettings(Program &program, FileBatch &batch, const SetupAnswers &answers)
{
    const Settings values = settingsFor(program, answers);
    if (answers.other)
        answers.other->takeSettings(program.db, batch);
    else
        takeOwnSettings(program, batch);
    OpenDatabase db(program.db, batch.path(settings::kFile));
    settings::complete(db, LocalFile::settings, settings::Fill::design);
    db.execute(u"begin immediate"_s);
    for (const auto writer : {SettingWriter::dialog, SettingWriter::setup, SettingWriter::till})
        for (const QString &statement : settings::updates(values, writer))
            db.execute(statement);
    db.execute(u"commit"_s);
}

/// A till counts its own receipts.
void keepReceiptNumber(Program &program, FileBatch &batch)
{
    settings::Texts own{{u"zno.zno"_s, u"0"_s}};
    if (const QString file = program.path(settings::kReceiptFile); QFile::exists(file)) {
        OpenDatabase db(program.db, file);
        settings::readTexts(db, LocalFile::receipt, u"zno", own);
    }
    OpenDatabase db(program.db, batch.path(settings::kReceiptFile));
    settings::complete(db, LocalFile::receipt, settings::Fill::design);
    for (const QString &statement :
         settings::updates(LocalFile::receipt, SettingWriter::till,
                           [&](const SettingRow &row) { return own.value(settings::nameOf(row)); }))
        db.execute(statement);
}

void require(bool written, const QString &directory)
{
    if (!written)
        throw std::runtime_error(u"%1 klasörüne yazılamadı; diskte yer olduğuna bakın."_s
                                     .arg(QDir::toNativeSeparators(directory))
                                     .toStdString());
}

/// The chosen layout gets the chosen printer, and so do those whose printer this machine lacks.
void writeLayouts(Program &program, SetupPrinting &printing, FileBatch &batch,
                  const SetupAnswers &answers)
{
    if (answers.layout.isEmpty() || answers.labelPrinter.isEmpty())
        return;
    const QString staged = QFileInfo(batch.path(u"data"_s)).path();
    const auto stage = [&](const QString &name) {
        if (!QFile::exists(batch.path(name)) && QFile::exists(program.path(name)))
            batch.take(program.path(name), name);
    };
    QStringList layouts = printing.layouts(staged) + printing.layouts(program.directory());
    layouts.removeDuplicates();
    const QStringList printers = program.printers.names();
    for (const QString &layout : layouts) {
        const QString name = u"ayar/"_s + layout;
        const QString where = QFile::exists(batch.path(name)) ? staged : program.directory();
        if (layout != answers.layout && printers.contains(printing.printerOf(where, layout)))
            continue;
        stage(name);
        require(printing.setPrinter(staged, layout, answers.labelPrinter), batch.directory());
    }
    stage(u"ayar/Default.zev"_s);
    require(printing.setDefaultLayout(staged, answers.layout), batch.directory());
}

} // namespace

void writeSetup(Program &program, SetupPrinting &printing, const SetupAnswers &answers)
{
    FileBatch batch(program.directory(), settings::kFile);
    writeSettings(program, batch, answers);
    if (answers.other) {
        answers.other->takeFiles(program.db, batch);
        if (answers.other->hasReceipt())
            keepReceiptNumber(program, batch);
    }
    writeLayouts(program, printing, batch, answers);
    batch.commit();
}

void finishSetup(const QString &directory)
{
    FileBatch::finish(directory, settings::kFile);
}
