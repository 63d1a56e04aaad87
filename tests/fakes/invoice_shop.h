#pragma once

#include "fakes/fake_ports.h"
#include "labels/desk/invoice_picker.h"

/// A machine of fakes with the invoice types ALIŞ (1) and SATIŞ (3), and an invoice picker at work
/// on it.
struct InvoiceShop
{
    FakeMachine machine;
    RecordingHost &host = machine.openCompany();
    InvoicePicker picker{machine.program};

    /// `count` invoices of 07.03.2026 with the references 0, 1, … under ALIŞ.
    explicit InvoiceShop(int count = 0)
    {
        host.answers[QStringLiteral("select * from FATFISTIP")] =
            RecordSet({QStringLiteral("FATFTNO"), QStringLiteral("FATFTKOD")},
                      {{1, QStringLiteral("ALIŞ")}, {3, QStringLiteral("SATIŞ")}});
        for (int reference = 0; reference < count; ++reference)
            add(reference, 1, QDate(2026, 3, 7));
        answerInvoices();
    }

    /// One more invoice, E and its reference being its document number.
    void invoice(int reference, const QVariant &type, const QVariant &date)
    {
        add(reference, type, date);
        answerInvoices();
    }

    /// Stock code and quantity of the lines that the host finds under these words.
    void lines(const QString &where, const std::vector<RecordSet::Row> &answer)
    {
        host.answers[QStringLiteral("select * from FATHAR where FATHARREFNO=") + where] =
            RecordSet({QStringLiteral("FATHARSTKKOD"), QStringLiteral("FATHARMIKTAR")}, answer);
    }

private:
    void add(int reference, const QVariant &type, const QVariant &date)
    {
        m_invoices.push_back({reference, type, date, QStringLiteral("E%1").arg(reference),
                              QStringLiteral("Güneş Ltd.")});
    }
    void answerInvoices()
    {
        const QString columns =
            QStringLiteral("FATFISREFNO FATFISTIPI FATFISTAR FATFISEVRAKNO1 FATFISCARUNVAN");
        host.answers[QStringLiteral("select * from FATFIS")] =
            RecordSet(columns.split(u' '), m_invoices);
    }

    std::vector<RecordSet::Row> m_invoices;
};
