#include "labels/print/printer_setting.h"

#include "paper/millimetres.h"
#include "paper/paged_canvas.h"

#include <QPageLayout>
#include <QPagedPaintDevice>

using namespace Qt::StringLiterals;

PrinterSetting::PrinterSetting(Program &program, const LabelLayout &layout)
    : m_program(program), m_memory(program.keys, program.directory()), m_layout(layout),
      m_calibration(m_memory.calibration(layout.printer)), m_printed(m_calibration),
      m_sheet(calibrationSheet(makeSheet(layout).paper))
{}

/// A document of the printer; the sheet becomes that of its paper. Null when it is gone (told).
std::unique_ptr<PrintDocument> PrinterSetting::open()
{
    auto document = m_program.printers.open(printer(), printerSetup(m_layout, u"Yazıcı ayarı"_s));
    if (!document) {
        m_program.prompt.warn(u"Yazici Hatası,Doğru Yazıcı Seçimi Yapınız..."_s, true);
        return document;
    }
    const QPagedPaintDevice &device = document->device();
    const QPointF end =
        toMillimetres({static_cast<double>(device.width()), static_cast<double>(device.height())},
                      resolution(device));
    const QMarginsF margins = device.pageLayout().margins(QPageLayout::Millimeter);
    m_sheet = calibrationSheet({end.x(), end.y()}, {margins.left(), margins.top()});
    m_known = true;
    return document;
}

bool PrinterSetting::printSheet()
{
    bool printed = false;
    m_program.handle([&] {
        const auto document = open();
        if (!document)
            return;
        PagedCanvas canvas(document->device(), {}, m_calibration);
        if (!canvas.begin())
            throw PrintError(u"Yazıcı yazdırmaya başlayamadı."_s);
        canvas.paint(m_sheet.commands);
        if (!canvas.end())
            throw PrintError(u"Yazıcı yazdırmayı bitiremedi."_s);
        document->finish();
        m_printed = m_calibration;
        printed = true;
    });
    return printed;
}

bool PrinterSetting::measure(const SheetReading &reading)
{
    if (!m_known) // the sheet was printed yesterday
        m_program.handle([this] { open(); });
    if (!m_known)
        return false;
    const auto next = calibrated(m_printed, m_sheet, reading);
    if (!next) {
        m_program.prompt.warn(u"Bu ölçülerle hiçbir yazıcı bu kadar kaymaz; artıdan kenara ve "
                              u"çizginin iki ucu arasını milimetre olarak yeniden ölçün."_s,
                              false);
        return false;
    }
    m_calibration = *next;
    return true;
}

bool PrinterSetting::save()
{
    if (m_memory.setCalibration(printer(), m_calibration))
        return true;
    m_program.prompt.warn(u"Yazıcı ayarı yazılamadı; klasöre yazılabildiğini ve diskte yer "
                          u"olduğunu kontrol edin."_s,
                          true);
    return false;
}
