#pragma once

#include <QDialog>

#include <functional>
#include <iosfwd>

/// What is done in an open dialog; it must close it.
using DialogAct = std::function<void(QDialog &)>;

/// Each opens a new dialog of its kind as the program does, filled with an example.
void openFunc(const DialogAct &act);
void openKqm3Func(const DialogAct &act);
void openPrCond(const DialogAct &act);
void openKisyuEdit(const DialogAct &act);
void openCap(const DialogAct &act);

void openVersion(const DialogAct &act);
void openPrint(const DialogAct &act);
void openVisibleColumns(const DialogAct &act);
void openMessage(const DialogAct &act);
void openPrintAbort(const DialogAct &act);

using DialogOpener = void (*)(const DialogAct &act);

struct OpenedDialog
{
    const char *name; ///< for an EditDialog: its class, and what comes after it
    DialogOpener open;
    const char *helpPage = nullptr; ///< that Help and F1 lead to
};

void PrintTo(const OpenedDialog &dialog, std::ostream *out);

/// All of the program's dialogs.
inline constexpr OpenedDialog openedDialogs[] = {
    {"frmVersion", openVersion},
    {"frmFunc", openFunc, "funccode.html"},
    {"frmFuncOfKqm3", openKqm3Func, "funccode.html"},
    {"frmCap", openCap},
    {"frmPrCond", openPrCond, "conditions.html"},
    {"frmKisyuEdit", openKisyuEdit, "machine.html"},
    {"frmPrint", openPrint},
    {"frmVisualInf", openVisibleColumns},
    {"messageBox", openMessage},
    {"printAbort", openPrintAbort},
};
