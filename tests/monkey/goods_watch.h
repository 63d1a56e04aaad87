#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

/// Looks after the goods: what stood in a sale list or in the print queue stays there unless it was
/// posted, taken out by a command, or given up with EVET.
class GoodsWatch final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void answered(const QString &question, bool yes);
    void posted(int written);

    /// Compares with the last look; what is missing without a reason, "" when nothing is.
    /// `settled`: no handler is under way, so that reasons given up to now have had their effect.
    QString look(bool settled);

    /// What the program ended with although it should have asked.
    QString lifeEnded() const;

private:
    struct Goods
    {
        QPointer<QAbstractItemModel> model;
        QStringList rows;
    };

    void findModels();
    void watch(QWidget &window);
    void watchCommands(QWidget &labels);
    void watchCounts(QLineEdit &box);
    static QStringList rowsOf(const QAbstractItemModel &model);

    QList<Goods> m_lists;
    Goods m_queue;
    QSet<const QObject *> m_watched;
    int m_written = 0;
    bool m_posted = false;
    bool m_discarded = false;
    int m_deleted = 0;
    bool m_queueCommand = false;
    bool m_zeroTyped = false;
};
