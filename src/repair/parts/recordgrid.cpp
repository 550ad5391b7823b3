#include "repair/parts/recordgrid.h"

#include "common/print/format.h"
#include "ui/colors.h"

#include <algorithm>
#include <numeric>
#include <utility>

void RecordListModel::setList(RecordList list)
{
    beginResetModel();
    m_list = std::move(list);
    m_order.resize(std::size_t(m_list.rows.size()));
    std::iota(m_order.begin(), m_order.end(), 0);
    endResetModel();
}

int RecordListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_list.rows.size());
}

int RecordListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_list.columns.size());
}

const RecordRow &RecordListModel::rowOf(int row) const
{
    RecordRow &found = m_list.rows[row];
    if (found.cells.size() < m_list.columns.size())
        found.cells = m_list.cells(found);
    return found;
}

QVariant RecordListModel::data(const QModelIndex &index, int role) const
{
    const RecordRow &row = m_list.rows.at(m_order[std::size_t(index.row())]);
    if (role == Qt::DisplayRole) {
        return index.column() < row.cells.size() ? row.cells[index.column()]
                                                 : record(index.row()).cells.value(index.column());
    }
    if (role == Qt::BackgroundRole && row.isDamaged)
        return tintOf(QColor(0xff, 0x90, 0x70));
    if (role == Qt::BackgroundRole && !row.isRecord)
        return QGuiApplication::palette().color(QPalette::Button);
    return {};
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return m_list.columns.value(section);
}

void RecordListModel::sortBy(int column, bool asNumbers, Qt::SortOrder order)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<int> before = m_order;
    std::vector<double> numbers;
    std::vector<QString> texts;
    for (int row = 0; row < rowCount(); ++row) {
        const QString text = rowOf(row).cells.value(column);
        asNumbers ? numbers.push_back(numericValue(text)) : texts.push_back(text);
    }
    asNumbers ? sortRows(numbers, order) : sortRows(texts, order);

    // What was selected stays so.
    std::vector<int> places(m_order.size());
    for (std::size_t shown = 0; shown < m_order.size(); ++shown)
        places[std::size_t(m_order[shown])] = int(shown);
    const QModelIndexList kept = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex &at : kept)
        moved << index(places[std::size_t(before[std::size_t(at.row())])], at.column());
    changePersistentIndexList(kept, moved);
    emit layoutChanged({}, VerticalSortHint);
}

template<typename Key>
void RecordListModel::sortRows(const std::vector<Key> &keys, Qt::SortOrder order)
{
    const auto comesFirst = [&](int one, int other) {
        const bool isRecord = m_list.rows.at(one).isRecord;
        if (isRecord != m_list.rows.at(other).isRecord)
            return isRecord;
        if (order == Qt::DescendingOrder)
            std::swap(one, other);
        return keys[std::size_t(one)] < keys[std::size_t(other)];
    };
    std::iota(m_order.begin(), m_order.end(), 0);
    std::ranges::stable_sort(m_order, comesFirst);
}
