#pragma once

#include "common/racepayoffs.h"

#include <QString>
#include <QWidget>

#include <array>

class QLineEdit;

// The six fields of the winning combinations, txtwinwin to txtshowshow: a row for each of the first
// three horses, a column for each kind of bet.
class TicketGrid : public QWidget
{
    Q_OBJECT

public:
    // The fields' text is \a size times as large as usual.
    explicit TicketGrid(double size, QWidget *parent = nullptr);

    QLineEdit *field(Ticket ticket) const { return m_fields[std::size_t(ticket)]; }
    QString text(Ticket ticket) const;

    // Puts the program's own text into a field.
    void setText(Ticket ticket, const QString &text);

    // True while a field shows the text that setText put there, and that is not empty.
    bool isUntouched(Ticket ticket) const;

private:
    std::array<QLineEdit *, ticketCount> m_fields;
    std::array<QString, ticketCount> m_texts; // what setText put there
};
