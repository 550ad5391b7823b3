#pragma once

#include "common/event/session.h"
#include "racecard/postboard.h"

// Race cards from the web. File work throws FileError and sets the operation label.

inline constexpr int downloadChunk = 1024; // bytes read at a time

// The address of the published card: the text in the file "Download" beside Init, else the one the
// program was built with.
QString downloadAddress(Session &session);

// Reads the downloaded text. It is a card only when at least one race in it is closed by END; of
// anything else, such as a sign-in page, no entries are returned.
PublishedCard readDownload(const QByteArray &text);

// Keeps the downloaded text as "postboard" in the event directory, reads it back and rewrites the
// Horses files of all 12 races, after a copy of each went to Saved; the backup twins stay. Returns
// a note for the operator, or an empty text.
QString saveDownload(Session &session, const QByteArray &text);
