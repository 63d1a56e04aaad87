#include "shell/setup_summary.h"

#include "shell/setup_session.h"

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString &code, const QString &name)
{
    return code.isEmpty() ? u"(seçilmedi)"_s : u"%1 %2"_s.arg(code, name).trimmed();
}

QString connection(const Settings::Server &server)
{
    const QString user =
        server.kuladi.isEmpty() ? QString() : u" %1 kullanıcısıyla"_s.arg(server.kuladi);
    return u"Program %1 sunucusuna%2 bağlanır. Stoklar, fiyatlar ve satışlar %3, KDV oranları %4 "
           "veritabanındadır."_s.arg(server.server, user, server.sql, server.msql);
}

QStringList sale(const Settings::Stok &stok)
{
    return {u"Kasada %1 fiyatından satılır. Her satış muhasebeye şöyle yazılır:"_s.arg(
                shown(stok.fiyatip, stok.fytadi)),
            u"   • mallar %1 deposundan düşülür, stok fişinin tipi %2 olur;"_s.arg(
                shown(stok.depo, stok.depoadi), shown(stok.stkfistip, stok.stkfistipadi)),
            u"   • tutarı %1 hesabına borç yazılır, cari fişinin tipi %2 olur;"_s.arg(
                shown(stok.carikod, stok.cari), shown(stok.crfistip, stok.crfistipadi)),
            u"   • faturası 3 numaralı tiple yazılır (listede: %1)."_s.arg(
                shown(stok.ftfistip, stok.ftfistipadi)),
            {},
            u"Etiketlerde birinci birim için %1, ikinci birim için %2 fiyatı basılır."_s.arg(
                shown(stok.br1fyt, stok.br1fytadi), shown(stok.br2fyt, stok.br2fytadi))};
}

QString missing(const Settings::Stok &stok)
{
    for (const CodeQuestion &question : codeQuestions())
        if ((stok.*question.code).isEmpty())
            return u"Seçilmeyen kodlar tamamlanmadan bu bilgisayarda satış yapmayın."_s;
    return {};
}

QString printers(const SetupAnswers &answers)
{
    const Settings::Yazici &receipt = answers.settings.yazici;
    QString text = u"Fişler %1 yazıcısından, satıştan sonra %2 çıkar."_s.arg(
        receipt.yazici1, receipt.yazdirma ? u"kendiliğinden"_s : u"yalnız istenince"_s);
    if (!answers.layout.isEmpty())
        text += u" Etiketler %1 tasarımıyla %2 yazıcısından basılır."_s.arg(answers.layout,
                                                                            answers.labelPrinter);
    return text;
}

QString otherTill(const OtherTill &other)
{
    QStringList parts = {u"ayarlar"_s};
    if (other.hasReceipt())
        parts += u"fiş tasarımı"_s;
    parts += u"%1 etiket tasarımı"_s.arg(other.layouts());
    parts += u"%1 resim"_s.arg(other.pictures());
    return u"%1 klasöründen alınır: %2. Bu kasadaki aynı adlı tasarım ve resimlerin yerine geçerler."_s
        .arg(other.directory, parts.join(u", "_s));
}

} // namespace

QString setupSummary(const SetupAnswers &answers)
{
    const Settings &settings = answers.other ? answers.other->settings : answers.settings;
    const QString gap;
    QStringList lines;
    if (answers.other)
        lines += {otherTill(*answers.other), gap};
    lines += {connection(settings.server), gap};
    lines += sale(settings.stok);
    if (const QString told = missing(settings.stok); !told.isEmpty())
        lines += {gap, told};
    lines += {gap, printers(answers), gap};
    lines += settings.login.sifre.isEmpty() ? u"Ayarlar parolasız açılır."_s
                                            : u"Ayarlar parolayla açılır."_s;
    lines += gap;
    lines += u"Bitir'e basınca hepsi birden bu bilgisayara kaydedilir. Muhasebeye şimdi bir şey "
             "yazılmaz."_s;
    return lines.join(u'\n');
}
