#include "app/rooms.h"
#include "app/setup_room.h"
#include "common/settings_database.h"
#include "shell/forms/setup_form.h"
#include "shell/setup_session.h"
#include "tour/tour.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace {

const QString kForm = u"SetupForm"_s;

bool waitsForServer()
{
    for (const QWidget *window : QApplication::topLevelWidgets())
        if (const auto *form = qobject_cast<const SetupForm *>(window); form && form->isBusy())
            return true;
    return false;
}

} // namespace

/// Both ways of the set-up on the demo shop, which is a ledger like any other.
void Tour::setup()
{
    step(u"Kurulumun ilk sorusu, ilk açılışta"_s, [this] {
        SetupRoom room(m_program);
        SystemProbe probe(m_program.directory());
        SetupSession session(m_program, probe, room, SetupSession::Occasion::firstStart);
        SetupForm form(session);
        form.show();
        picture(kForm, u"kurulum-yol"_s);
    });
    ownLedger();
    otherTill();
}

/// A step of the set-up, when the server has answered; Enter goes on.
void Tour::setupStep(const QString &what, const Action &action)
{
    step(
        what,
        [this, action] {
            action();
            press(control(kForm, u"next"_s), Qt::Key_Return);
        },
        [] { return !waitsForServer(); });
}

void Tour::ownLedger()
{
    const auto shown = [this](const QString &name) {
        return [this, name] { picture(kForm, u"kurulum-"_s + name); };
    };
    const auto chosen = [this](const QString &typed, const QString &name = {}) {
        return [this, typed, name] {
            type(kForm, u"search"_s, typed);
            if (!name.isEmpty())
                picture(kForm, u"kurulum-"_s + name);
        };
    };
    step(u"Kurulum ayarlardan açılır; kendi muhasebe"_s, [this] { m_rooms.showSetup(); });
    step(u"Enter"_s, [this] { press(control(kForm, u"wayOwn"_s), Qt::Key_Return); });
    setupStep(u"Sunucu"_s, shown(u"sunucu"_s));
    setupStep(u"Veritabanları"_s, shown(u"veritabanlari"_s));
    setupStep(u"Tanılama"_s, shown(u"tanilama"_s));
    setupStep(u"Depo"_s, chosen(u"mağaza"_s, u"depo"_s));
    setupStep(u"Satış fiyatı"_s, chosen(u"peraken"_s));
    setupStep(u"Cari hesap"_s, chosen(u"perakende müş"_s, u"cari"_s));
    setupStep(u"Stok fişi tipi"_s, chosen(u"perakende"_s));
    setupStep(u"Cari fişi tipi"_s, chosen(u"satış"_s));
    setupStep(u"Fatura tipi"_s, chosen(u"perakende"_s));
    setupStep(u"Birinci birimin fiyatı"_s, chosen(u"perakende"_s));
    setupStep(u"İkinci birimin fiyatı"_s, chosen(u"koli"_s));
    setupStep(u"Fiş yazıcısı, deneme fişiyle"_s, [this] {
        click(kForm, u"test"_s);
        picture(kForm, u"kurulum-fis-yazicisi"_s);
    });
    setupStep(u"Etiket yazıcısı, deneme etiketiyle"_s, [this] {
        click(kForm, u"test"_s);
        picture(kForm, u"kurulum-etiket-yazicisi"_s);
    });
    setupStep(u"Parola boş bırakılır"_s, shown(u"parola"_s));
    step(u"Soruya evet denir"_s, [this] { press(window(u"mesaj"_s), Qt::Key_Return); });
    setupStep(u"Özet; Bitir"_s, shown(u"ozet"_s));
}

void Tour::otherTill()
{
    step(u"Kurulum bir daha; başka bir kasanın ayarları"_s, [this] {
        makeOtherTill();
        m_rooms.showSetup();
    });
    step(u"Enter"_s, [this] { press(control(kForm, u"wayOther"_s), Qt::Key_Return); });
    setupStep(u"Öbür kasanın klasörü"_s, [this] {
        type(kForm, u"folder"_s, m_otherTill.path());
        picture(kForm, u"kurulum-obur-kasa"_s);
    });
    setupStep(u"Fiş yazıcısı"_s, [] {});
    setupStep(u"Etiket yazıcısı"_s, [] {});
    setupStep(u"Özet; Bitir"_s, [this] { picture(kForm, u"kurulum-obur-kasa-ozet"_s); });
}

/// A till that works: a copy of this one.
void Tour::makeOtherTill()
{
    const QDir own(m_program.directory());
    const QDir copy(m_otherTill.path());
    copy.mkpath(u"ayar/pic"_s);
    QFile::copy(m_program.path(settings::kFile), copy.filePath(settings::kFile.toString()));
    QFile::copy(m_program.path(settings::kReceiptFile),
                copy.filePath(settings::kReceiptFile.toString()));
    QDirIterator files(m_program.path(u"ayar"), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = own.relativeFilePath(files.next());
        QFile::copy(own.filePath(name), copy.filePath(name));
    }
}
