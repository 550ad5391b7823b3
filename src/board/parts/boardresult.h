#pragma once

#include "board/boardpicture.h"

class QPainter;
class QRectF;

// Paints the finish, what $2 pays, and what the multibets pay, into the room.
void paintBoardResult(QPainter &painter, const QRectF &room, const BoardPicture &picture);
