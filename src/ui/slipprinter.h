#pragma once

#include "common/print/slip.h"

#include <QFont>

#include <functional>

class QPagedPaintDevice;

// Prints slips on the default printer, each as a job of its own.
class SlipPrinter
{
public:
    // Where slips go instead of the printer, when set: a preview, or a test that reads them.
    using Destination = std::function<void(const Slip &)>;
    void setDestination(Destination destination) { m_destination = std::move(destination); }

    // Prints one job. Throws FileError 482 when there is no usable printer or it refuses the job.
    void print(const Slip &slip) const;

private:
    Destination m_destination;
};

// Paints the slip on a device whose page is set up, over as many pages as it needs; the heading
// lines are repeated on each. Returns the number of pages, 0 when the device refused to begin.
int paintSlip(const Slip &slip, QPagedPaintDevice &device);

// Makes the named fonts of slips and lists resolve to fonts of the same widths where the system
// lacks them. Call once, before the first window.
void substituteNamedFonts();
