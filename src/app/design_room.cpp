#include "app/design_room.h"

#include "app/forms.h"
#include "labels/designer/designer_session.h"
#include "labels/designer/forms/Form1.h"
#include "labels/print/forms/printer_calibration.h"
#include "labels/print/forms/yazfrm.h"

#include <QApplication>

using namespace Qt::StringLiterals;

DesignRoom::DesignRoom(Program &program, PrintRun &print, LabelDesk &desk, const Forms &forms)
    : m_program(program), m_print(print), m_desk(desk), m_forms(forms), m_search(program)
{}

DesignRoom::~DesignRoom()
{
    delete m_form;
}

Form1 *DesignRoom::makeForm()
{
    auto *session = new DesignerSession(m_program);
    auto *form = new Form1(*session);
    session->setParent(form);
    connect(form, &Form1::openWanted, this, &DesignRoom::chooseToOpen);
    connect(form, &Form1::saveAsWanted, this, &DesignRoom::chooseToSave);
    connect(form, &Form1::queueWanted, this, [this] {
        m_program.handle([this] {
            const PrintQueue &queue = m_desk.queue();
            showStocks(labelsOf(queue.placed(queue.everyPlace())));
        });
    });
    connect(form, &Form1::stockWanted, this, [this](const QString &text) {
        m_program.handle([&] {
            m_desk.loadPriceNumbers();
            showStocks(m_search.find(text, m_desk.priceNumbers()));
        });
    });
    connect(form, &Form1::calibrationWanted, this, &DesignRoom::calibrate);
    m_session = session;
    return form;
}

void DesignRoom::showStocks(const std::vector<LabelRow> &rows)
{
    if (!m_session)
        return;
    m_session->setRows(rows);
    if (rows.empty())
        Q_EMIT m_session->statusChanged(u"Stok bulunamadı; örnek değerler gösteriliyor."_s);
}

/// Over the page set-up that asked for it.
void DesignRoom::calibrate(const LabelLayout &layout)
{
    QWidget *above = QApplication::activeModalWidget();
    auto *dialog = new PrinterCalibration(m_print.printerSetting(layout),
                                          above ? above : static_cast<QWidget *>(m_form));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::finished, m_session, &DesignerSession::printerWasSet);
    dialog->open();
}

void DesignRoom::show(const QString &layout)
{
    m_forms.show(m_form, [this] { return makeForm(); });
    if (!layout.isEmpty())
        m_session->ac(layout);
}

void DesignRoom::offerRecovery()
{
    if (!hasRecovery(m_program))
        return;
    // The question stands over no window: the designer comes up with its answer.
    m_forms.ready(m_form, [this] { return makeForm(); });
    if (m_session->recover())
        show();
    else
        delete m_form;
}

bool DesignRoom::close()
{
    return !m_form || m_form->close();
}

/// The print dialog serves as open and save-as dialog of the designer, too.
void DesignRoom::chooseToOpen()
{
    const LayoutTask task{u"Tasarım Aç"_s, u"&Aç"_s, false,
                          [this](const QString &name) { return m_session->ac(name); }};
    m_dialog = new yazfrm(m_print, task, {.rows = {m_session->row()}}, m_form);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    fitToScreen(*m_dialog);
    m_dialog->open();
}

void DesignRoom::chooseToSave()
{
    const LayoutTask task{u"Tasarımı Farklı Kaydet"_s, u"&Kaydet"_s, true,
                          [this](const QString &name) { return m_session->saveAs(name); }};
    m_dialog = new yazfrm(m_print, task, {.rows = {m_session->row()}}, m_form);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    fitToScreen(*m_dialog);
    m_dialog->open();
}
