#pragma once

#include "editor/SaveOutcome.h"

#include <QList>
#include <QString>

class QMenu;
class frmPrFile;

/// What an editor window shows in the frame around it, and what it reads there.
class EditorFrame
{
public:
    virtual ~EditorFrame() = default;

    /// The editor window that is active; nullptr without one.
    virtual frmPrFile *activeEditor() const = 0;
    /// Every open editor window, by document number.
    virtual QList<frmPrFile *> openEditors() const = 0;
    /// Shows that editor window above the others, in a frame that is not minimised.
    virtual void makeActive(frmPrFile &editor) = 0;

    /// Saves the editor's document, active or not, in its file. Asks for a name while it is untitled.
    virtual SaveOutcome save(frmPrFile &editor) = 0;
    /// Saves the editor's document under a name that is asked for.
    virtual SaveOutcome saveAs(frmPrFile &editor) = 0;
    /// Keeps the unsaved document for the next start, beyond the end of its window. False when that is not possible.
    virtual bool keepForNextStart(const frmPrFile &editor) = 0;

    virtual void showParameterCount(int count) = 0;
    virtual void showPrNumber(const QString &number) = 0;

    virtual void enablePasteButton(bool enabled) = 0;
    virtual void enableAddPasteButton(bool enabled) = 0;

    /// bar 0: tool bar, 1: status bar.
    virtual bool isBarShown(int bar) const = 0;
    virtual void showBar(int bar, bool shown) = 0;

    /// Puts the list of open windows at the end of a Window menu.
    virtual void fillWindowList(QMenu &menu) = 0;
};
