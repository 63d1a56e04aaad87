#include "shell/setup_step.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using S = SetupStep;
using K = Settings::Stok;

constexpr auto kCodes = std::to_array<CodeQuestion>({
    {S::warehouse, u"depo", u"DEPO", u"DEPKOD", u"DEPADI", &K::depo, &K::depoadi},
    {S::salePrice, u"satış fiyatı", u"STKFIYTIP", u"STKFTFIYNO", u"STKFTFIYADI", &K::fiyatip,
     &K::fytadi},
    {S::customer, u"cari hesap", u"CARKART", u"CARKOD", u"CARUNVAN", &K::carikod, &K::cari},
    {S::stockSlip, u"stok fişi tipi", u"STKFISTIP", u"STKFTNO", u"STKFTKOD", &K::stkfistip,
     &K::stkfistipadi},
    {S::accountSlip, u"cari fişi tipi", u"CARFISTIP", u"CARFTNO", u"CARFTKOD", &K::crfistip,
     &K::crfistipadi},
    {S::invoiceType, u"fatura tipi", u"FATFISTIP", u"FATFTNO", u"FATFTKOD", &K::ftfistip,
     &K::ftfistipadi},
    {S::labelPrice1, u"1. birim fiyatı", u"STKFIYTIP", u"STKFTFIYNO", u"STKFTFIYADI", &K::br1fyt,
     &K::br1fytadi},
    {S::labelPrice2, u"2. birim fiyatı", u"STKFIYTIP", u"STKFTFIYNO", u"STKFTFIYADI", &K::br2fyt,
     &K::br2fytadi},
});

} // namespace

QList<SetupStep> setupSteps(SetupWay way)
{
    switch (way) {
    case SetupWay::demo:
        return {S::way};
    case SetupWay::otherTill:
        return {S::way, S::folder, S::receiptPrinter, S::labelPrinter, S::summary};
    case SetupWay::ownLedger:
        break;
    }
    return {S::way,         S::server,      S::databases,      S::diagnosis,    S::warehouse,
            S::salePrice,   S::customer,    S::stockSlip,      S::accountSlip,  S::invoiceType,
            S::labelPrice1, S::labelPrice2, S::receiptPrinter, S::labelPrinter, S::password,
            S::summary};
}

SetupQuestion setupQuestion(SetupStep step)
{
    switch (step) {
    case S::way:
        return {u"Tezgâh nasıl kurulsun?"_s,
                u"Seçtiğinizi sonradan ayarlardan değiştirebilirsiniz."_s};
    case S::folder:
        return {
            u"Öbür kasanın klasörü nerede?"_s,
            u"Çalışan kasanın Tezgâh klasörünü gösterin (örneğin \\\\KASA1\\Tezgâh ya da taşınır "
            "bellekteki kopyası). Sunucu, muhasebe kodları, fiş tasarımı, etiket tasarımları ve "
            "resimleri alınır; oradaki dosyalar değişmez."_s};
    case S::server:
        return {u"Muhasebenizin sunucusu hangisi?"_s,
                u"Muhasebe programınızın SQL Server'ı. Bilgileri muhasebenizi kuran kişi verir: "
                "KASA1, KASA1\\SQLEXPRESS ya da KASA1,1433 gibi; bu bilgisayardaysa . yeter."_s};
    case S::databases:
        return {u"Kayıtlarınız hangi veritabanlarında?"_s,
                u"Şirket veritabanında stoklarınız ve cari hesaplarınız, ana veritabanında bütün "
                "şirketlerin ortak bilgileri (KDV oranları) durur."_s};
    case S::diagnosis:
        return {u"Bağlantı kuruluyor mu?"_s,
                u"Program sunucuya adım adım bakar; hiçbir şey yazılmaz."_s};
    case S::warehouse:
        return {u"Satılan mallar hangi depodan düşülsün?"_s,
                u"Kasanın stok fişleri bu depoya yazılır."_s};
    case S::salePrice:
        return {u"Kasada hangi fiyattan satılsın?"_s, u"Okutulan malın bu fiyatı alınır."_s};
    case S::customer:
        return {u"Satışlar hangi cari hesaba yazılsın?"_s,
                u"Kasa satışlarının toplandığı hesap, çoğu yerde \"perakende müşteri\"dir."_s};
    case S::stockSlip:
        return {u"Satışın stok fişi hangi tipte olsun?"_s,
                u"Muhasebede satış çıkışı için kullanılan tipi seçin."_s};
    case S::accountSlip:
        return {u"Satışın cari fişi hangi tipte olsun?"_s,
                u"Muhasebede satış faturası borcu için kullanılan tipi seçin."_s};
    case S::invoiceType:
        return {u"Satışın faturası hangi tiptedir?"_s,
                u"Kasa, faturayı muhasebeye her zaman 3 numaralı tiple yazar; listede 3 numaranın "
                "perakende satış olduğuna bakın."_s};
    case S::labelPrice1:
        return {u"Etiketlerde birinci birimin fiyatı hangisi olsun?"_s,
                u"Tek tek satılan birim, örneğin adet."_s};
    case S::labelPrice2:
        return {u"Etiketlerde ikinci birimin fiyatı hangisi olsun?"_s,
                u"Toplu satılan birim, örneğin koli. Kullanmıyorsanız birincisini seçin."_s};
    case S::receiptPrinter:
        return {u"Fişler hangi yazıcıdan çıksın?"_s,
                u"PDF, fişi yazıcı yerine cikti klasörüne dosya olarak yazar."_s};
    case S::labelPrinter:
        return {
            u"Etiketler hangi yazıcıdan çıksın?"_s,
            u"Seçilen tasarım her gün kullanılan olur. Yazıcısı bu bilgisayarda bulunmayan öbür "
            "tasarımlar da bu yazıcıya alınır."_s};
    case S::password:
        return {
            u"Ayarlar hangi parolayla açılsın?"_s,
            u"Ayarları yalnız bu parolayı bilen açar. Parola büyük harflerle saklanır; girerken "
            "büyük küçük harf fark etmez."_s};
    case S::summary:
        return {u"Böyle kurulsun mu?"_s, {}};
    }
    return {};
}

std::span<const CodeQuestion> codeQuestions()
{
    return kCodes;
}

const CodeQuestion *codeQuestion(SetupStep step)
{
    const auto found = std::ranges::find(kCodes, step, &CodeQuestion::step);
    return found == kCodes.end() ? nullptr : &*found;
}
