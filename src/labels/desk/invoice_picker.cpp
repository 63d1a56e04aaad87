#include "labels/desk/invoice_picker.h"

#include "common/amount.h"
#include "common/code_list.h"
#include "common/host_queries.h"
#include "common/program.h"
#include "common/select_many.h"
#include "labels/desk/invoice_queries.h"
#include "labels/desk/typed_moment.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kTrackingFile = u"fattakip.zev";
const QString kTrackingSection = QStringLiteral("fat");

/// Rows looked at between two glances at the clock.
constexpr qsizetype kBatch = 500;

/// The date of a "dd.MM.yyyy" text by the places of its parts, whatever follows them.
QDate dateByPosition(const QString &text)
{
    return {text.mid(6, 4).toInt(), text.mid(3, 2).toInt(), text.mid(0, 2).toInt()};
}

QString countText(QStringView what, qsizetype count)
{
    return u"%1 %2"_s.arg(amount::whole(count), what);
}

} // namespace

QString InvoiceType::number() const
{
    return code.section(kCodeMark.toString(), 1);
}

InvoicePicker::InvoicePicker(Program &program, QObject *parent)
    : QObject(parent), m_program(program), m_task(u"Okunamadı."_s)
{
    relay(m_task, *this);
}

QDate InvoicePicker::today() const
{
    return m_program.clock.now().date();
}

void InvoicePicker::load()
{
    m_invoices.clear();
    m_lines.clear();
    fatipyukle();
    takipyukle();
}

void InvoicePicker::fatipyukle()
{
    m_types.clear();
    m_program.handle([this] {
        RecordSet types = m_program.company().execute(host_queries::allOf(u"FATFISTIP"));
        for (; !types.eof(); types.moveNext()) {
            const QString name = types.text(u"FATFTKOD");
            m_types.push_back(
                {name, name + kCodeMark.toString() + types.text(u"FATFTNO").trimmed()});
        }
    });
}

void InvoicePicker::takipyukle()
{
    const QString file = m_program.path(kTrackingFile);
    m_tracking.on = m_program.keys.read(kTrackingSection, u"takip"_s, file).trimmed().toInt() != 0;
    m_tracking.number = m_program.keys.read(kTrackingSection, u"takipno"_s, file);
}

void InvoicePicker::saveTracking(const TrackingFilter &filter)
{
    const QString file = m_program.path(kTrackingFile);
    const QString on = QString::number(filter.on ? 1 : 0);
    if (!m_program.keys.write(kTrackingSection, u"takip"_s, on, file) ||
        !m_program.keys.write(kTrackingSection, u"takipno"_s, filter.number, file)) {
        m_program.warn(u"Takip ayarı yazılamadı:\n%1"_s.arg(file));
        return;
    }
    m_tracking = filter;
    Q_EMIT statusChanged(u"Takip ayarı kaydedildi."_s);
}

void InvoicePicker::listInvoices(int type, QDate from, QDate to)
{
    if (isBusy() || refuseListing(type, from, to))
        return;
    m_program.handle([&] {
        LongTask::Run run(m_task, u"Faturalar okunuyor…"_s);
        RecordSet invoices = m_program.company().execute(invoice_queries::all());
        m_invoices.clear();
        run.outcome = pick(std::move(invoices), m_types.at(type).number(), from, to);
    });
}

bool InvoicePicker::refuseListing(int type, QDate from, QDate to)
{
    if (type < 0 || type >= m_types.size()) {
        m_program.caution(u"Fatura Tipi Seçimi Yapmanız Gerekiyor..."_s);
        return true;
    }
    if (!from.isValid() || !to.isValid()) {
        m_program.caution(typed_moment::kNoDate.toString());
        return true;
    }
    if (from > to) {
        m_program.caution(u"Başlangıç tarihi bitiş tarihinden sonra olamaz."_s);
        return true;
    }
    return false;
}

QString InvoicePicker::pick(RecordSet invoices, const QString &type, QDate from, QDate to)
{
    const qsizetype total = invoices.rowCount();
    qsizetype done = 0;
    std::vector<InvoiceRow> kept;
    while (!invoices.eof()) {
        kept.clear();
        for (qsizetype i = 0; i < kBatch && !invoices.eof(); ++i, ++done, invoices.moveNext()) {
            if (invoices.text(u"FATFISTIPI").trimmed() != type)
                continue;
            const QString date = invoices.text(u"FATFISTAR");
            const QDate day = dateByPosition(date);
            if (day.isValid() && from <= day && day <= to)
                kept.push_back({date.left(10), invoices.text(u"FATFISEVRAKNO1"),
                                invoices.text(u"FATFISCARUNVAN"), invoices.text(u"FATFISREFNO")});
        }
        m_invoices.append(kept);
        if (!m_task.goOn(u"Faturalar listeleniyor"_s, done, total))
            return u"Durduruldu: "_s + countText(u"fatura listelendi.", m_invoices.size());
    }
    return m_invoices.size() == 0 ? u"Bu tipte ve tarihlerde fatura yok."_s
                                  : countText(u"fatura listelendi.", m_invoices.size());
}

void InvoicePicker::loadLines(const TrackingFilter &filter)
{
    if (isBusy())
        return;
    const QStringList references = m_invoices.checkedReferences();
    m_lines.clear();
    if (references.isEmpty()) {
        Q_EMIT statusChanged(u"Önce listeden fatura işaretleyiniz."_s);
        return;
    }
    m_program.handle([&] {
        LongTask::Run run(m_task, u"Fatura satırları okunuyor…"_s);
        run.outcome = readLines(references, filter);
    });
}

QString InvoicePicker::readLines(const QStringList &references, const TrackingFilter &filter)
{
    const auto statement = [&](int i) {
        return filter.on ? invoice_queries::trackedLines(references.at(i), filter.number)
                         : invoice_queries::lines(references.at(i));
    };
    const auto take = [&](int i, RecordSet records) {
        std::vector<InvoiceLine> lines;
        for (; !records.eof(); records.moveNext())
            lines.push_back({records.text(u"FATHARSTKKOD"), records.text(u"FATHARMIKTAR")});
        m_lines.append(lines);
        return m_task.goOn(u"Fatura satırları okunuyor"_s, i + 1, references.size());
    };
    if (!selectMany(m_program, static_cast<int>(references.size()), statement, take))
        return u"Durduruldu: "_s + countText(u"satır getirildi.", m_lines.size());
    if (m_lines.size() > 0)
        return countText(u"satır getirildi.", m_lines.size());
    return filter.on ? u"Seçili faturalarda bu takip numarasıyla satır yok."_s
                     : u"Seçili faturalarda satır yok."_s;
}

void InvoicePicker::anafatekle()
{
    if (isBusy())
        return;
    if (m_lines.size() == 0) {
        Q_EMIT statusChanged(u"Aktarılacak satır yok: önce satırları getiriniz."_s);
        return;
    }
    Q_EMIT transferred(m_lines.lines());
}
