#include "labels/designer/designer_commands.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using enum Command;
using Menu = CommandMenu;

constexpr bool kCheckable = true;
constexpr bool kDivider = true;

constexpr CommandInfo kCommands[] = {
    {newLayout, Menu::file, u"yeni", u"&Yeni", u"Ctrl+N"},
    {open, Menu::file, u"ac", u"&Aç…", u"Ctrl+O"},
    {save, Menu::file, u"kaydet", u"&Kaydet…", u"Ctrl+S"},
    {saveAs, Menu::file, u"farkli_kaydet", u"&Farklı Kaydet…", u"Ctrl+Shift+S"},
    {pageSetup, Menu::file, u"sayfa_ayari", u"&Sayfa Ayarı…", u"Ctrl+E", false, kDivider},
    {sheetView, Menu::file, u"sayfa_gorunumu", u"Sayfa &Görünümü…", u"F9"},
    {close, Menu::file, u"kapat", u"Ka&pat", u"Ctrl+W", false, kDivider},

    {undo, Menu::edit, u"geri_al", u"&Geri Al", u"Ctrl+Z"},
    {redo, Menu::edit, u"yinele", u"&Yinele", u"Ctrl+Y; Ctrl+Shift+Z"},
    {cut, Menu::edit, u"kes", u"&Kes", u"Ctrl+X; Shift+Del", false, kDivider},
    {copy, Menu::edit, u"kopyala", u"K&opyala", u"Ctrl+C; Ctrl+Ins"},
    {paste, Menu::edit, u"yapistir", u"Ya&pıştır", u"Ctrl+V; Shift+Ins"},
    {duplicate, Menu::edit, u"cogalt", u"&Çoğalt", u"Ctrl+D"},
    {erase, Menu::edit, u"sil", u"&Sil", u"Del"},
    {selectAll, Menu::edit, u"tumunu_sec", u"&Tümünü Seç", u"Ctrl+A", false, kDivider},
    {selectNone, Menu::edit, u"secimi_birak", u"Seçimi &Bırak", u"Ctrl+Shift+A"},
    {selectNext, Menu::edit, u"sonraki_oge", u"So&nraki Öge", u"Tab"},
    {selectPrevious, Menu::edit, u"onceki_oge", u"&Önceki Öge", u"Shift+Tab"},

    {pointer, Menu::insert, u"sec", u"&Seç", u"S", kCheckable},
    {addText, Menu::insert, u"metin", u"&Metin", u"M", kCheckable, kDivider},
    {addBarcode, Menu::insert, u"barkod", u"&Barkod", u"B", kCheckable},
    {addPicture, Menu::insert, u"resim", u"&Resim", u"R", kCheckable},
    {addSymbol, Menu::insert, u"simge", u"S&imge", u"G", kCheckable},

    {properties, Menu::element, u"ozellikler", u"Ö&zellikler…", u"Return; Enter; F2"},
    {turnLeft, Menu::element, u"sola_dondur", u"So&la Döndür", u"Ctrl+R", false, kDivider},
    {turnRight, Menu::element, u"saga_dondur", u"Sa&ğa Döndür", u"Ctrl+Shift+R"},
    {lock, Menu::element, u"kilitle", u"K&ilitle", u"Ctrl+L", kCheckable, kDivider},
    {unlockAll, Menu::element, u"kilitleri_ac", u"Tüm Kilitleri A&ç", u"Ctrl+Shift+L"},

    {alignLeft, Menu::align, u"sola_hizala", u"&Sola", u"Alt+Left"},
    {alignCentreX, Menu::align, u"yatay_ortala", u"&Yatay Ortaya", u"Alt+Home"},
    {alignRight, Menu::align, u"saga_hizala", u"S&ağa", u"Alt+Right"},
    {alignTop, Menu::align, u"uste_hizala", u"&Üste", u"Alt+Up"},
    {alignCentreY, Menu::align, u"dikey_ortala", u"&Dikey Ortaya", u"Alt+End"},
    {alignBottom, Menu::align, u"alta_hizala", u"A&lta", u"Alt+Down"},
    {centreOnLabelX, Menu::align, u"etikette_yatay", u"&Etikette Yatay Ortala", u"Ctrl+Home", false,
     kDivider},
    {centreOnLabelY, Menu::align, u"etikette_dikey", u"E&tikette Dikey Ortala", u"Ctrl+End"},
    {distributeX, Menu::align, u"yatay_dagit", u"Yatay Da&ğıt", u"Alt+Shift+Right", false,
     kDivider},
    {distributeY, Menu::align, u"dikey_dagit", u"Di&key Dağıt", u"Alt+Shift+Down"},
    {sameWidth, Menu::align, u"ayni_en", u"Aynı E&n", u"Ctrl+Shift+E", false, kDivider},
    {sameHeight, Menu::align, u"ayni_boy", u"Aynı &Boy", u"Ctrl+Shift+B"},

    {front, Menu::order, u"en_one", u"En Ö&ne", u"Ctrl+PgUp"},
    {forward, Menu::order, u"one", u"&Öne", u"PgUp"},
    {backward, Menu::order, u"arkaya", u"A&rkaya", u"PgDown"},
    {back, Menu::order, u"en_arkaya", u"En Arka&ya", u"Ctrl+PgDown"},

    {zoomIn, Menu::view, u"yaklas", u"&Yaklaş", u"Ctrl++; Ctrl+="},
    {zoomOut, Menu::view, u"uzaklas", u"&Uzaklaş", u"Ctrl+-"},
    {zoomFit, Menu::view, u"sigdir", u"Pencereye &Sığdır", u"F6; Ctrl+0"},
    {zoomActual, Menu::view, u"gercek_boy", u"&Gerçek Boy (%100)", u"F5; Ctrl+1"},
    {grid, Menu::view, u"izgara", u"I&zgara", u"Ctrl+G", kCheckable, kDivider},
    {snap, Menu::view, u"yakala", u"Y&akala", u"Ctrl+K", kCheckable},
    {guides, Menu::view, u"kilavuzlar", u"&Kılavuz Çizgileri", u"Ctrl+Shift+G", kCheckable},
    {clearGuides, Menu::view, u"kilavuzlari_sil", u"Kılavuz Çizgilerini S&il", u""},
    {panel, Menu::view, u"panel", u"Özellik &Paneline Git", u"F4", false, kDivider},

    {findSample, Menu::sample, u"ornek_ara", u"Stok &Ara", u"F3"},
    {previousSample, Menu::sample, u"onceki_ornek", u"Ö&nceki Stok", u"F7"},
    {nextSample, Menu::sample, u"sonraki_ornek", u"S&onraki Stok", u"F8"},
    {queueSample, Menu::sample, u"kuyruktan", u"&Kuyruktaki Stoklar", u"Shift+F3", false, kDivider},
    {fieldNames, Menu::sample, u"alan_adlari", u"Ö&rnek Değerler", u"Shift+F8"},

    {help, Menu::help, u"tuslar", u"&Tuşlar", u"F1"},
};

constexpr HandHelp kHands[] = {
    {u"Ok tuşları", u"0,1 mm kaydırır"},
    {u"Shift + ok", u"1 mm kaydırır"},
    {u"Ctrl + ok", u"Sağ ve alt kenarı 0,1 mm oynatır"},
    {u"Ctrl + Shift + ok", u"Sağ ve alt kenarı 1 mm oynatır"},
    {u"Esc", u"Sürüklemeyi ya da çizmeyi bırakır; sonra seçimi bırakır"},
    {u"Enter (çizim aracında)", u"Ögeyi etiketin ortasına koyar"},
    {u"Tıklama", u"Seçer; Shift ya da Ctrl ile seçime ekler, çıkarır"},
    {u"Boş yerden sürükleme", u"Çerçevenin içinde kalanları seçer"},
    {u"Sürükleme", u"Taşır; Shift ile yalnız yatay ya da dikey"},
    {u"Tutamağı sürükleme", u"Boyutlandırır; Shift ile en boy oranını korur"},
    {u"Sürüklerken Ctrl", u"Yakalamayı o an için kapatır"},
    {u"Çift tıklama", u"Ögenin özelliklerini açar"},
    {u"Cetvelden sürükleme", u"Kılavuz çizgisi koyar; etiketin dışına bırakılan silinir"},
    {u"Tekerlek", u"İmlecin olduğu yere yaklaşır, uzaklaşır"},
    {u"Shift + tekerlek", u"Yana kaydırır"},
    {u"Orta düğme ya da Boşluk + sürükleme", u"Sayfayı kaydırır"},
};

} // namespace

std::span<const CommandInfo> commandTable()
{
    return kCommands;
}

const CommandInfo &infoOf(Command command)
{
    return *std::find_if(std::begin(kCommands), std::end(kCommands),
                         [command](const CommandInfo &info) { return info.command == command; });
}

QString captionOf(CommandMenu menu)
{
    switch (menu) {
    case Menu::file:
        return u"&Dosya"_s;
    case Menu::edit:
        return u"Dü&zen"_s;
    case Menu::insert:
        return u"E&kle"_s;
    case Menu::element:
        return u"&Öge"_s;
    case Menu::align:
        return u"Hiza&la"_s;
    case Menu::order:
        return u"&Sıra"_s;
    case Menu::view:
        return u"&Görünüm"_s;
    case Menu::sample:
        return u"Örnek &Veri"_s;
    default:
        return u"&Yardım"_s;
    }
}

std::span<const HandHelp> handTable()
{
    return kHands;
}
