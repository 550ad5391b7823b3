#pragma once

#include <QStringList>

class QTableWidget;

// A grid that only shows: fills it with \a columns and \a rows, the first cell of a row being its
// heading at the left. Figures stand on the right; the columns from \a firstText on are texts and
// stand on the left.
void fillTable(QTableWidget *table, const QStringList &columns, const QList<QStringList> &rows,
               qsizetype firstText);
