#include "repair/parts/recordgrid.h"

#include "common/print/format.h"
#include "ui/colors.h"

void RecordListModel::setList(RecordList list)
{
    beginResetModel();
    m_list = std::move(list);
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

const QStringList &RecordListModel::cells(int row) const
{
    RecordRow &found = m_list.rows[row];
    if (m_list.lateCell && found.cells.size() < m_list.columns.size())
        found.cells.append(m_list.lateCell(found));
    return found.cells;
}

QVariant RecordListModel::data(const QModelIndex &index, int role) const
{
    const RecordRow &row = m_list.rows.at(index.row());
    if (role == Qt::DisplayRole) {
        return index.column() < row.cells.size() ? row.cells[index.column()]
                                                 : cells(index.row()).value(index.column());
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

RecordListOrder::RecordListOrder(RecordListModel *model)
    : QSortFilterProxyModel(model)
    , m_model(model)
{
    setSourceModel(model);
}

void RecordListOrder::sortBy(int column, bool asNumbers, Qt::SortOrder order)
{
    m_numbers.clear();
    if (asNumbers) {
        for (int row = 0; row < m_model->rowCount(); ++row)
            m_numbers.append(numericValue(m_model->index(row, column).data().toString()));
    }
    // A change of the comparison alone would not sort again.
    sort(-1);
    sort(column, order);
}

bool RecordListOrder::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const RecordRow &one = m_model->list().rows[left.row()];
    const RecordRow &other = m_model->list().rows[right.row()];
    if (one.isRecord != other.isRecord)
        return one.isRecord == (sortOrder() == Qt::AscendingOrder);
    if (!m_numbers.isEmpty())
        return m_numbers[left.row()] < m_numbers[right.row()];
    return left.data().toString() < right.data().toString();
}
