#include "app/setup_room.h"

#include "app/forms.h"
#include "labels/designer/sample_rows.h"
#include "labels/layout/layout_folder.h"
#include "labels/print/label_builder.h"
#include "labels/print/print_job.h"
#include "labels/print/print_memory.h"
#include "paper/paged_canvas.h"
#include "sales/receipt_printing.h"
#include "sales/receipt_store.h"
#include "shell/forms/look.h"
#include "shell/forms/setup_form.h"
#include "shell/setup_session.h"

#include <QApplication>
#include <QPagedPaintDevice>

using namespace Qt::StringLiterals;

SetupRoom::SetupRoom(Program &program) : m_program(program), m_probe(program.directory())
{}

SetupRoom::~SetupRoom()
{
    delete m_form;
}

std::optional<SetupWay> SetupRoom::askFirst()
{
    SetupSession session(m_program, m_probe, *this, SetupSession::Occasion::firstStart);
    SetupForm form(session);
    fitToScreen(form);
    QApplication::setQuitOnLastWindowClosed(false); // the program begins behind it
    if (form.exec() != QDialog::Accepted)
        return {};
    return session.answers().way;
}

void SetupRoom::show(const Forms &forms)
{
    forms.show(m_form, [this] {
        auto *session = new SetupSession(m_program, m_probe, *this, SetupSession::Occasion::later);
        auto *form = new SetupForm(*session);
        session->setParent(form);
        form->setModal(true);
        connect(form, &QDialog::accepted, this, &SetupRoom::changed, Qt::QueuedConnection);
        return form;
    });
}

QStringList SetupRoom::layouts(const QString &directory) const
{
    return LayoutFolder(m_program.keys, m_program.prompt, directory).names();
}

QString SetupRoom::defaultLayout(const QString &directory) const
{
    return LayoutFolder(m_program.keys, m_program.prompt, directory).defaultName();
}

QString SetupRoom::printerOf(const QString &directory, const QString &layout) const
{
    return LayoutFolder(m_program.keys, m_program.prompt, directory).open(layout).printer;
}

bool SetupRoom::setPrinter(const QString &directory, const QString &layout, const QString &printer)
{
    return LayoutFolder(m_program.keys, m_program.prompt, directory).setPrinter(layout, printer);
}

bool SetupRoom::setDefaultLayout(const QString &directory, const QString &layout)
{
    return LayoutFolder(m_program.keys, m_program.prompt, directory).setDefault(layout);
}

void SetupRoom::printReceipt(const QString &printer)
{
    // Not the stored layout: reading one would make a file that the set-up has not come to.
    const ReceiptLayout layout = receipt_store::designLayout();
    ::printReceipt(m_program.printers, printer,
                   drawReceipt(layout, sampleReceipt(m_program.clock.now())));
}

void SetupRoom::printLabel(const QString &directory, const QString &name, const QString &printer)
{
    LabelLayout layout = LayoutFolder(m_program.keys, m_program.prompt, directory).open(name);
    layout.printer = printer;
    const PrintJob job =
        makePrintJob(layout, {SampleRows(m_program, m_program.clock).current(layout)});
    const auto document =
        m_program.printers.open(printer, printerSetup(layout, u"Deneme etiketi"_s));
    if (!document)
        throw PrintError(u"\"%1\" adlı yazıcı bulunamadı."_s.arg(printer));
    PagedCanvas canvas(document->device(), pictureFolder(directory),
                       PrintMemory(m_program.keys, m_program.directory()).calibration(printer));
    const GridWalk::Place place = GridWalk(job.grid, 1).next();
    const bool begun = canvas.begin();
    if (begun)
        canvas.paint(LabelBuilder(job, canvas.fonts()).label(job.rows.front()).commands,
                     {static_cast<double>(place.x), static_cast<double>(place.y)});
    if (!begun || !canvas.end())
        throw PrintError(u"\"%1\" yazıcısı yazdırmayı kabul etmedi."_s.arg(printer));
    document->finish();
}
