#include "sales/receipt_editor.h"

#include "common/program.h"
#include "common/settings_database.h"
#include "sales/receipt_printing.h"
#include "sales/receipt_store.h"

using namespace Qt::StringLiterals;

ReceiptEditor::ReceiptEditor(Program &program, QObject *parent)
    : QObject(parent), m_program(program)
{}

const ReceiptLayout &ReceiptEditor::load()
{
    m_stored = receipt_store::fisoku(m_program.files());
    m_layout = m_stored;
    m_touched = false;
    return m_layout;
}

void ReceiptEditor::edit(const ReceiptLayout &layout)
{
    m_layout = layout;
    if (!m_touched)
        m_stored = layout;
    m_touched = true;
    Q_EMIT previewChanged();
}

ReceiptPage ReceiptEditor::preview() const
{
    return drawReceipt(m_layout, sampleReceipt(m_program.clock.now()));
}

void ReceiptEditor::testPrint()
{
    m_program.handle([this] {
        const QString printer = settings::read(m_program.files(), {u"yazici"}).yazici.yazici1;
        if (!yaziciseciver(m_program.printers, printer)) {
            m_program.warn(u"Yazıcı Bulunamadı.Ayarlardan Yazıcı Kontrolu Yapıp Tekrar "
                           "Deneyiniz..."_s);
            return;
        }
        printReceipt(m_program.printers, printer, preview());
    });
}

bool ReceiptEditor::save()
{
    bool done = false;
    m_program.handle([&] {
        receipt_store::save(m_program.files(), m_layout);
        done = true;
    });
    if (done) {
        m_stored = m_layout;
        Q_EMIT saved();
    }
    return done;
}

bool ReceiptEditor::mayClose()
{
    return !changed() ||
           m_program.ask(u"Kaydedilmemiş değişiklikler var. Kaydetmeden kapatılsın mı?"_s);
}
