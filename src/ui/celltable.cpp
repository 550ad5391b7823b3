#include "ui/celltable.h"

#include <QTableWidget>

void fillTable(QTableWidget *table, const QStringList &columns, const QList<QStringList> &rows,
               qsizetype firstText)
{
    table->setColumnCount(int(columns.size()));
    table->setRowCount(int(rows.size()));
    table->setHorizontalHeaderLabels(columns);
    for (int row = 0; row < int(rows.size()); ++row) {
        const QStringList &cells = rows[row];
        table->setVerticalHeaderItem(row, new QTableWidgetItem(cells.value(0)));
        for (int column = 0; column < int(columns.size()); ++column) {
            auto *item = new QTableWidgetItem(cells.value(column + 1));
            item->setTextAlignment((column < firstText ? Qt::AlignRight : Qt::AlignLeft)
                                   | Qt::AlignVCenter);
            table->setItem(row, column, item);
        }
    }
}
