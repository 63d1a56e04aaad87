#pragma once

#include <QDialog>

#include <memory>

class LabelDesk;

namespace Ui {
class SavedQueues;
}

/// Queues that the shop keeps under names: saves the one on the desk, opens and deletes others.
class SavedQueues final : public QDialog
{
    Q_OBJECT

public:
    /// `desk` must outlive the form.
    explicit SavedQueues(LabelDesk &desk, QWidget *parent = nullptr);
    ~SavedQueues() override;

Q_SIGNALS:
    /// The queue of this name is to come onto the desk; the form has closed.
    void chosen(const QString &name);

private:
    void fill();
    QString typedName() const;
    void save();
    void openTyped();
    void remove();
    void showCommands();

    LabelDesk &m_desk;
    std::unique_ptr<Ui::SavedQueues> m_ui;
};
