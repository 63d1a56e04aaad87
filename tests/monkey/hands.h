#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <deque>
#include <functional>
#include <random>

QT_BEGIN_NAMESPACE
class QWindow;
QT_END_NAMESPACE

/// The monkey's luck; everything random comes from here.
class Luck
{
public:
    explicit Luck(quint32 seed) : m_engine(seed) {}

    /// 0 to n − 1; the same on every system for one seed.
    int below(int n) { return n > 0 ? static_cast<int>(m_engine() % static_cast<quint32>(n)) : 0; }
    bool chance(int percent) { return below(100) < percent; }
    template <typename List>
    auto pick(const List &list)
    {
        return *(std::begin(list) + below(static_cast<int>(std::size(list))));
    }

private:
    std::mt19937 m_engine;
};

/// Keys and mouse on whatever window a user could reach. Each act says in words what it does before
/// it is done.
class Hands
{
public:
    /// `words`: what a shop would type: barcodes, stock codes, names.
    Hands(Luck &luck, QStringList words) : m_luck(luck), m_words(std::move(words)) {}

    struct Act
    {
        QString told;
        std::function<void()> act;
    };

    /// The window that a user could use now: an open menu, the modal form, or one of the others;
    /// null when none shows.
    QWidget *window();

    Act click(QWidget &window);
    Act key();
    Act text();
    Act resize(QWidget &window);

private:
    QString anything();
    static QList<QWidget *> controls(const QWidget &window);

    Luck &m_luck;
    QStringList m_words;
};
