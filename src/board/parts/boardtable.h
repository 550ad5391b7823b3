#pragma once

#include "board/boardpicture.h"

class QPainter;
class QRectF;

// Paints the horses with their odds and money, and the totals, into the room.
void paintBoardTable(QPainter &painter, const QRectF &room, const BoardPicture &picture);
