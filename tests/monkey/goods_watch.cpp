#include "monkey/goods_watch.h"

#include "labels/desk/print_queue.h"
#include "sales/sale_list.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Commands of the label form that take rows out of the queue.
const QStringList kQueueCommands = {u"removeOne"_s, u"clearQueue"_s, u"removePrinted"_s,
                                    u"ekbar1"_s,    u"ekbar2"_s,     u"ekbartum"_s};

/// What `before` holds more than `now`.
QStringList missing(const QStringList &before, QStringList now)
{
    QStringList gone;
    for (const QString &row : before)
        if (!now.removeOne(row))
            gone += row;
    return gone;
}

} // namespace

void GoodsWatch::answered(const QString &question, bool yes)
{
    if (yes && question.startsWith(u"Kaydi Silmek"_s))
        ++m_deleted;
    if (yes && question.contains(u"YİNEDE KAPATMAK"_s))
        m_discarded = true;
}

void GoodsWatch::posted(int written)
{
    m_posted |= written > m_written;
    m_written = written;
}

QStringList GoodsWatch::rowsOf(const QAbstractItemModel &model)
{
    QStringList rows;
    // Stock code and name are what a row keeps when numbers, prices and counts change.
    const bool queue = qobject_cast<const PrintQueue *>(&model);
    const int code = queue ? static_cast<int>(PrintQueue::code) : 1;
    const int name = queue ? static_cast<int>(PrintQueue::name) : 2;
    for (int row = 0; row < model.rowCount(); ++row)
        rows += model.index(row, code).data().toString() + u' ' +
                model.index(row, name).data().toString();
    return rows;
}

void GoodsWatch::findModels()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("stfatura")) {
            for (const QTableView *view : window->findChildren<QTableView *>()) {
                auto *model = qobject_cast<SaleList *>(view->model());
                const auto known = [model](const Goods &goods) { return goods.model == model; };
                if (model && std::none_of(m_lists.cbegin(), m_lists.cend(), known))
                    m_lists += Goods{model, {}};
            }
        } else if (m_watched.contains(window)) {
            continue;
        } else if (window->inherits("stkkart")) {
            watch(*window);
            watchCommands(*window);
            if (const auto *view = window->findChild<QTreeView *>(u"l2"_s))
                m_queue.model = view->model();
        } else if (window->inherits("ShelfScanForm")) {
            watch(*window);
            watchCounts(*window->findChild<QLineEdit *>(u"giris"_s));
        }
    }
}

void GoodsWatch::watch(QWidget &window)
{
    m_watched += &window;
    connect(&window, &QObject::destroyed, this, [this](const QObject *gone) { m_watched -= gone; });
}

/// A count of 0 takes the row out that was scanned last.
void GoodsWatch::watchCounts(QLineEdit &box)
{
    connect(&box, &QLineEdit::textEdited, this, [this](const QString &text) {
        bool number = false;
        m_zeroTyped = text.trimmed().toInt(&number) == 0 && number;
    });
    connect(&box, &QLineEdit::returnPressed, this, [this] { m_queueCommand |= m_zeroTyped; });
}

void GoodsWatch::watchCommands(QWidget &labels)
{
    const auto commanded = [this] { m_queueCommand = true; };
    for (const QString &name : kQueueCommands) {
        if (const auto *button = labels.findChild<QAbstractButton *>(name))
            connect(button, &QAbstractButton::clicked, this, commanded);
        if (const auto *action = labels.findChild<QAction *>(name))
            connect(action, &QAction::triggered, this, commanded);
    }
}

QString GoodsWatch::look(bool settled)
{
    findModels();
    QString told;
    for (Goods &goods : m_lists) {
        if (!goods.model)
            continue;
        const QStringList now = rowsOf(*goods.model);
        const QStringList gone = missing(goods.rows, now);
        goods.rows = now;
        if (!gone.isEmpty() && !m_discarded && !m_posted && gone.size() > m_deleted)
            told += u"sale list lost: %1\n"_s.arg(gone.join(u" | "_s));
    }
    if (m_queue.model) {
        const QStringList now = rowsOf(*m_queue.model);
        const QStringList gone = missing(m_queue.rows, now);
        m_queue.rows = now;
        if (!gone.isEmpty() && !m_queueCommand)
            told += u"print queue lost: %1\n"_s.arg(gone.join(u" | "_s));
    }
    if (settled) {
        m_posted = m_discarded = m_queueCommand = false;
        m_deleted = 0;
    }
    return told;
}

QString GoodsWatch::lifeEnded() const
{
    QStringList kept;
    for (const Goods &goods : m_lists)
        if (goods.model && !m_discarded)
            kept += rowsOf(*goods.model);
    return kept.isEmpty() ? QString()
                          : u"the program ended with goods: %1\n"_s.arg(kept.join(u" | "_s));
}
