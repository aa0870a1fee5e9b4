#pragma once

#include <QDialog>

#include <functional>

/// What is done in an open dialog; it must close it.
using DialogAct = std::function<void(QDialog &)>;

/// Each opens a new dialog of its kind as the program does, filled with an example.
void openFunc(const DialogAct &act);
void openKqm3Func(const DialogAct &act);
void openPrCond(const DialogAct &act);
void openKisyuEdit(const DialogAct &act);
void openCap(const DialogAct &act);

using DialogOpener = void (*)(const DialogAct &act);
