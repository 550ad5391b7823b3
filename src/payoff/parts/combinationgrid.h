#pragma once

#include "common/event/racepayoffs.h"

#include <QString>
#include <QWidget>

#include <array>

class QLineEdit;

// The six fields of the winning combinations, txtwinwin to txtshowshow: a row for each of the first
// three horses, a column for each kind of bet.
class CombinationGrid : public QWidget
{
    Q_OBJECT

public:
    // The fields' text is \a size times as large as usual.
    explicit CombinationGrid(double size, QWidget *parent = nullptr);

    QLineEdit *field(Combination combination) const { return m_fields[std::size_t(combination)]; }
    QString text(Combination combination) const;

    // Puts the program's own text into a field.
    void setText(Combination combination, const QString &text);

    // True while a field shows the text that setText put there, and that is not empty.
    bool isUntouched(Combination combination) const;

private:
    std::array<QLineEdit *, combinationCount> m_fields;
    std::array<QString, combinationCount> m_texts; // what setText put there
};
