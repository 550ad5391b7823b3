#pragma once

#include "repair/recordlist.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

// The rows of a record list for a grid; damaged rows stand out.
class RecordListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setList(RecordList list);
    const RecordList &list() const { return m_list; }
    const QStringList &cells(int row) const; // all of them; a late one is made now

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    mutable RecordList m_list; // late cells come into it as they are shown
};

// Sorts the rows by a column, as text or as numbers; the row of the total stays last.
class RecordListOrder : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit RecordListOrder(RecordListModel *model);

    void sortBy(int column, bool asNumbers, Qt::SortOrder order);

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    RecordListModel *m_model;
    QList<double> m_numbers; // of the column in source order; empty when it sorts as text
};
