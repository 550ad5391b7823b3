#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

class QListView;
class QListWidget;
class QWidget;

// Lists of lines, as on paper.

// A list of lines in the fixed-pitch font.
QListWidget *makeList(QWidget *parent, const QString &name, const QString &accessibleName,
                      const QString &toolTip = {});

// The fixed-pitch font of lists and receipts.
QFont fixedPitchFont(double pointSize = 0);

// Lays out a list of text lines at once however long it is: every line gets the size of the longest
// of \a lines, so that none is measured alone and none is cut.
void setUniformLines(QListView *list, const QStringList &lines);
