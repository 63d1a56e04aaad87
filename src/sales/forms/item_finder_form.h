#pragma once

#include <QDialog>

#include <functional>
#include <memory>

class ItemFinder;

QT_BEGIN_NAMESPACE
class QTimer;
QT_END_NAMESPACE

namespace Ui {
class ItemFinderForm;
}

/// Finds an item by its name, code or barcode and tells its price in large figures. Enter takes the
/// item; Escape leaves without selling.
class ItemFinderForm final : public QDialog
{
    Q_OBJECT

public:
    /// `search` fills `finder` and tells faults.
    ItemFinderForm(ItemFinder &finder, std::function<void(const QString &)> search,
                   QWidget *parent = nullptr);
    ~ItemFinderForm() override;

    /// The stock code that was taken; empty: none.
    const QString &taken() const { return m_taken; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void search();
    void take();
    void showPrice();

    ItemFinder &m_finder;
    std::function<void(const QString &)> m_search;
    std::unique_ptr<Ui::ItemFinderForm> m_ui;
    QTimer *m_pause; ///< after the last letter
    QString m_searched;
    QString m_taken;
};
