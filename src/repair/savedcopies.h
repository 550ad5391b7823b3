#pragma once

#include "repair/recordlist.h"

// The copies in the Saved folder of the event: what they are, and putting one back.

// A row for each copy, newest first: number, file name, time, bytes, records. The row's line is the
// copy's file name.
RecordList listSavedCopies(Session &session);

// The record file whose content a copy holds, told from the copy's name.
struct SavedOrigin
{
    RecordFile file = RecordFile::Bets;
    int race = 0; // 0 for Bettors
    QString name; // "Bets Race3", without "backup"
};
std::optional<SavedOrigin> originOf(const QString &copyName);

// Puts the copy onto the record file and its twin; what they held goes to Saved first. Throws
// FileError.
void putBackCopy(Session &session, const QString &copyName);
