#pragma once

/// Runs a Tabrix that opens its help and is closed so many milliseconds later. Returns the program's exit status. To be
/// called once in a process, which has no application of its own.
int openHelpAndQuit(int delay);
