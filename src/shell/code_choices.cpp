#include "shell/code_choices.h"

#include "common/turkish.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

void CodeChoices::setCodes(std::vector<HostCode> codes)
{
    m_codes = std::move(codes);
    m_typed.clear();
    m_searched.clear();
    m_searched.reserve(m_codes.size());
    for (const HostCode &code : m_codes)
        m_searched.push_back(turkish::upper(QString(code.code + u' ' + code.name)));
    search({});
}

void CodeChoices::search(const QString &text)
{
    const QString typed = turkish::upper(text);
    const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
    beginResetModel();
    if (m_typed.isEmpty() || !typed.startsWith(m_typed)) { // else fewer of those that are shown
        m_shown.resize(m_codes.size());
        std::iota(m_shown.begin(), m_shown.end(), 0U);
    }
    std::erase_if(m_shown, [&](std::size_t place) {
        return !std::ranges::all_of(
            words, [&](const QString &word) { return m_searched[place].contains(word); });
    });
    m_typed = typed;
    endResetModel();
}

const HostCode &CodeChoices::at(int row) const
{
    return m_codes[m_shown.at(static_cast<std::size_t>(row))];
}

int CodeChoices::find(const QString &code) const
{
    const auto found = std::ranges::find_if(
        m_shown, [&](std::size_t place) { return m_codes[place].code == code; });
    return found == m_shown.end() ? -1 : static_cast<int>(found - m_shown.begin());
}

int CodeChoices::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int CodeChoices::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant CodeChoices::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const HostCode &code = at(index.row());
    return index.column() == 0 ? code.code : code.name;
}

QVariant CodeChoices::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == 0 ? u"Kod"_s : u"Ad"_s;
}
