#include "labels/desk/forms/queue_menu.h"

#include "labels/desk/label_desk.h"

using namespace Qt::StringLiterals;

QueueMenu::QueueMenu(LabelDesk &desk, QWidget *parent) : QMenu(parent)
{
    QAction *undo = add(u"undoRemoval"_s, u"Silineni &Geri Getir"_s, Qt::CTRL | Qt::Key_Z);
    undo->setEnabled(desk.canUndo());
    connect(undo, &QAction::triggered, &desk, &LabelDesk::undoRemoval);
    connect(&desk, &LabelDesk::undoChanged, undo, &QAction::setEnabled);

    QAction *printed =
        add(u"removePrinted"_s, u"&Basılanları Çıkar"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    connect(printed, &QAction::triggered, &desk, &LabelDesk::removePrinted);

    QAction *repeat = add(u"repeatPrinting"_s, u"Son Basılanı &Yeniden Yazdır"_s,
                          Qt::CTRL | Qt::SHIFT | Qt::Key_F9);
    repeat->setEnabled(desk.printing().canRepeat());
    connect(repeat, &QAction::triggered, &desk, &LabelDesk::repeatPrinting);
    connect(&desk.printing(), &LabelPrinting::repeatChanged, repeat, &QAction::setEnabled);

    addSeparator();
    connect(add(u"importCounts"_s, u"&Dosyadan Ekle (kod;adet)..."_s, Qt::CTRL | Qt::Key_O),
            &QAction::triggered, this, &QueueMenu::importWanted);
    connect(add(u"savedQueues"_s, u"&Kayıtlı Kuyruklar..."_s, Qt::CTRL | Qt::Key_S),
            &QAction::triggered, this, &QueueMenu::savedQueuesWanted);
}

QAction *QueueMenu::add(const QString &name, const QString &text, const QKeySequence &keys)
{
    QAction *action = addAction(text);
    action->setObjectName(name);
    action->setShortcut(keys);
    parentWidget()->addAction(action);
    return action;
}
