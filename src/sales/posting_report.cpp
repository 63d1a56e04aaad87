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
        return u"Bu kayıtlar muhasebede tamamlanmalı. Satışı yeniden girmeyin."_s;
    return result.uncertain > 0
               ? u"Yeniden kaydetmeden önce muhasebede bu kaydın bulunup bulunmadığına bakın."_s
               : u"Neden giderilince F2 ile yeniden kaydedin."_s;
}

QString textOf(const PostingReport &report, const Sale &sale)
{
    QStringList all = {u"EKSİK KALAN SATIŞ"_s, sale.moment.toString(u"dd.MM.yyyy HH:mm:ss"_s),
                       u"Toplam: "_s + sale.totals.grand, report.headline, QString()};
    for (qsizetype i = 0; i < report.lines.size(); ++i)
        all += u"%1. %2"_s.arg(QString::number(i + 1), report.lines.at(i));
    all += {QString(), report.advice, QString()};
    return all.join(u'\n');
}

} // namespace

PostingReport reportOf(const PostingResult &result, const Sale &sale)
{
    PostingReport report{
        headlineOf(result), result.counters + result.records, adviceOf(result), {}};
    report.text = textOf(report, sale);
    return report;
}
