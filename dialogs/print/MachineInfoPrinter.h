#pragma once

#include <QString>

class PrintJob;
struct MachineInfo;

/// Prints the machine information into the job, in the user's font, on as many pages as it takes. title is the
/// document's. False if the job takes no more pages.
///
/// Both fields begin at the same position on every line, whatever the texts: positions are counted in digits of the
/// font. A text that is too wide for its field (20 full-width characters, for instance) is drawn narrower; a title
/// continues on the next line.
bool printMachineInfo(PrintJob &job, const MachineInfo &machine, const QString &title);
