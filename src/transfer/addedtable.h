#pragma once

#include "common/event/addedbets.h"

#include <QList>
#include <QStringList>

// What a transfer added, as the table below the steps shows it: a column for each race and one for
// all; each row begins with its heading.
struct AddedBetsTable
{
    QStringList columns;
    QList<QStringList> rows;
    QString note; // races that look imported before, or empty
};

// An empty table for no transfer.
AddedBetsTable addedBetsTable(const QList<AddedBets> &races);
