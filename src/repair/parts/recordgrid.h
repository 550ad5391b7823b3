#pragma once

#include "repair/recordlist.h"

#include <QAbstractTableModel>

#include <vector>

// The rows of a record list for a grid, in the order that they were sorted into; damaged rows stand
// out.
class RecordListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    // Shows the list in its own order.
    void setList(RecordList list);
    const RecordList &list() const { return m_list; }

    // What the grid's row \a shown shows, with all of its cells.
    const RecordRow &record(int shown) const { return rowOf(m_order[std::size_t(shown)]); }

    // Sorts the rows by a column, as text or as numbers; the row of the total stays last, and rows
    // that are the same there stay in the list's own order.
    void sortBy(int column, bool asNumbers, Qt::SortOrder order);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const RecordRow &rowOf(int row) const;
    template<typename Key>
    void sortRows(const std::vector<Key> &keys, Qt::SortOrder order);

    mutable RecordList m_list; // late cells come into it as they are asked for
    std::vector<int> m_order;  // rows of the list, from the grid's first on
};
