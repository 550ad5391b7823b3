#pragma once

#include "common/files/progress.h"
#include "common/print/slip.h"

class QPagedPaintDevice;

// Paints the slip on a device whose page is set up, over as many pages as it needs; the heading
// lines are repeated on each, and a block that fits on a page is never parted. A slip wider than
// the page is painted smaller, and what is too wide even then goes on in the next line. Returns the
// number of pages, 0 when the device refused to begin or to end.
int paintSlip(const Slip &slip, QPagedPaintDevice &device, const Progress &progress = {});
