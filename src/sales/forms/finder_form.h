#pragma once

#include <QDialog>

#include <functional>
#include <memory>

class Finder;

QT_BEGIN_NAMESPACE
class QTimer;
QT_END_NAMESPACE

namespace Ui {
class FinderForm;
}

/// Finds a stock or an account by a part of its name or code and shows it in large type. Enter
/// takes it; Escape leaves without.
class FinderForm final : public QDialog
{
    Q_OBJECT

public:
    /// What the window says of itself.
    struct Words
    {
        QString title;
        QString searched; ///< "Adı ya da &kodu"
        QString take;     ///< "Satışa &ekle (Enter)"
    };

    /// `search` fills `finder` and tells faults.
    FinderForm(Finder &finder, const Words &words, std::function<void(const QString &)> search,
               QWidget *parent = nullptr);
    ~FinderForm() override;

    /// The row that was taken; −1: none.
    int taken() const { return m_taken; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search();
    void take();
    void showRow();

    Finder &m_finder;
    std::function<void(const QString &)> m_search;
    std::unique_ptr<Ui::FinderForm> m_ui;
    QTimer *m_pause; ///< after the last letter
    QString m_searched;
    int m_taken = -1;
};
