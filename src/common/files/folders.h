#pragma once

#include "common/files/hostpath.h"

#include <QStringList>

// Folders as the screens that choose one list them: paths in backslash form that end in one
// backslash.

// "C:\" and "C:\Trelawn\" for C:\Trelawn\: the folder and those it lies in, from the root on.
QStringList foldersAbove(const QString &folder);

// The names of the folders inside \a folder, in plain order.
QStringList foldersInside(const HostPaths &paths, const QString &folder);
