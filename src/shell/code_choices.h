#pragma once

#include <QAbstractTableModel>

#include <vector>

/// One record of a list of the ledger: warehouse, customer, price, slip type.
struct HostCode
{
    QString code;
    QString name;

    friend bool operator==(const HostCode &, const HostCode &) = default;
};

/// A list of the ledger to choose from. It is searched by any part of code or name; with fifty
/// thousand customers a key takes no time that one could feel.
class CodeChoices final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setCodes(std::vector<HostCode> codes);

    /// Shows those that hold every word of the text, in upper or lower case.
    void search(const QString &text);

    const HostCode &at(int row) const;

    /// The shown row of a code; −1 when it is not shown.
    int find(const QString &code) const;

    bool isEmpty() const { return m_codes.empty(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<HostCode> m_codes;
    std::vector<QString> m_searched;  ///< of each code, what is looked through
    std::vector<std::size_t> m_shown; ///< places in m_codes
    QString m_typed;                  ///< what they were searched by
};
