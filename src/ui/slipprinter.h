#pragma once

#include "common/print/slip.h"
#include "ui/slippainter.h"

// Prints slips on the default printer, each as a job of its own.
class SlipPrinter
{
public:
    // Where slips go instead of the printer, when set: a preview, or a test that reads them.
    using Destination = std::function<void(const Slip &)>;
    void setDestination(Destination destination) { m_destination = std::move(destination); }

    // What became of a job that the print system accepted: it prints, or it waits because the
    // printer is paused.
    enum class Job { Printed, Waiting };

    // Prints one job. Throws FileError 482 when there is no usable printer or the print system does
    // not accept the job; nothing is printed then.
    Job print(const Slip &slip, const Progress &progress = {}) const;

private:
    Destination m_destination;
};

// Makes the named fonts of slips and lists resolve to fonts of the same widths where the system
// lacks them. Call once, before the first window.
void substituteNamedFonts();
