#pragma once

class SpeedTable;

/// The sizes of a document at which the speed is taken: a typical one and the greatest there is.
inline constexpr int typicalRows = 1000;
inline constexpr int maxRows = 32767;

/// Reading and writing without a window.
void addCoreRows(SpeedTable &table);
/// What a user meets in a window: opening, commands, scrolling.
void addEditorRows(SpeedTable &table);
/// From a key's press to the painted cell, if there is an X server for it.
void addKeyRows(SpeedTable &table);
/// The process under that server: prints the times.
int printKeyTimes();
/// Whole processes: start, a file from start to paint, memory; beside bare windows and other programs.
void addProcessRows(SpeedTable &table);

/// One of the processes that addProcessRows() starts: shows what mode says and ends. Returns -1 when mode is none of
/// them.
int runAsChild(const char *mode, const char *argument);
