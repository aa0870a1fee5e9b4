#pragma once

#include <QStringList>

class Desk;
class SpeedTable;

/// The sizes of a document at which the speed is taken: a typical one and the greatest there is.
inline constexpr int typicalRows = 1000;
inline constexpr int maxRows = 32767;

/// Reading and writing without a window.
void addCoreRows(SpeedTable &table);
/// What a user meets in a window: opening, scrolling, searching, printing.
void addEditorRows(SpeedTable &table);
/// The commands on a table.
void addCommandRows(SpeedTable &table);
/// A text of a megabyte in a window.
void addLongTextRows(SpeedTable &table);
/// From a key's press to the painted cell, if there is an X server for it.
void addKeyRows(SpeedTable &table);
/// The process under that server: prints the times.
int printKeyTimes();
/// Whole processes: start, a file from start to paint, memory; beside bare windows and other programs.
void addProcessRows(SpeedTable &table);

/// Other programs with the same rows, if they are installed.
void addPeerRows(SpeedTable &table);
/// The process under their X server: starts a program, and prints the milliseconds until cells are in the picture.
int printPictureTime(const QStringList &command);

struct Printed
{
    double milliseconds; ///< by the clock, from the command to the closed file
    int pages;
};
/// Prints all rows to a PDF file.
Printed printRows(const Desk &desk);

/// One of the processes that these start: shows what mode says and ends. Returns -1 when mode is none of
/// them.
int runAsChild(const char *mode, const char *argument);
