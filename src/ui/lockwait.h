#pragma once

#include "common/files/folderlock.h"

class QWidget;

// The box "Waiting for NAME" with Cancel, over the program's window while another program holds the
// event's files. Nothing else can be pressed meanwhile.
std::unique_ptr<WaitNotice> showLockWait(QWidget *window, const QString &holder);
