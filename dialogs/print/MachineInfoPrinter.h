#pragma once

#include <QString>

class PrintJob;

/// Prints the machine information of document docNo (from 1) into the job, in the user's font; what does not fit on
/// one page goes on the next. title is the editor window's caption. False when the job takes no more pages.
///
/// Both fields begin at the same place on every line, whatever the texts: places are counted in digits of the font. A
/// text too wide for its place (20 full-width characters, say) is drawn narrower, a title goes on in the next line.
bool printMachineInfo(PrintJob &job, int docNo, const QString &title);
