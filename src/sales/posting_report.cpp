#include "sales/posting_report.h"

using namespace Qt::StringLiterals;

namespace {

QString headlineOf(const PostingResult &result)
{
    const QString count = QString::number(result.missing());
    QString text = result.posted()
                       ? u"Satış kaydedildi, ancak %1 kayıt yazılamadı."_s.arg(count)
                       : u"Satış kaydedilemedi, liste duruyor (%1 kayıt yazılamadı)."_s.arg(count);
    if (result.uncertain > 0)
        text += u" %1 kaydın yanıtı alınamadı: yazılmış olabilir."_s.arg(result.uncertain);
    return text;
}

QString adviceOf(const PostingResult &result)
{
    if (result.posted())
        return u"Bu kayıtlar F1, Eksik satışlar sayfasından tamamlanır. Satışı yeniden girmeyin."_s;
    return result.uncertain > 0
               ? u"Yeniden kaydetmeden önce muhasebede bu kaydın bulunup bulunmadığına bakın."_s
               : u"Neden giderilince F2 ile yeniden kaydedin."_s;
}

} // namespace

QString PostingReport::paper(const Sale &sale) const
{
    QStringList all = {u"EKSİK KALAN SATIŞ"_s, sale.moment.toString(u"dd.MM.yyyy HH:mm:ss"_s),
                       u"Toplam: "_s + sale.totals.grand, headline, QString()};
    for (qsizetype i = 0; i < lines.size(); ++i)
        all += u"%1. %2"_s.arg(QString::number(i + 1), lines.at(i));
    all += {QString(), advice, QString()};
    return all.join(u'\n');
}

PostingReport reportOf(const PostingResult &result, const Sale &sale)
{
    PostingReport report{
        headlineOf(result), result.counters + result.records, adviceOf(result), {}};
    report.text = report.paper(sale);
    return report;
}
