#pragma once

#include "editor/SaveOutcome.h"

#include <QList>
#include <QString>

class QMenu;
class frmPrFile;

enum class Bar : quint8 { Tool, Status };
enum class Arrangement : quint8 { Cascaded, Tiled };

/// What there must be for a command to be given.
enum class CommandNeeds : quint8 { Nothing, Document, CopiedText, CopiedRows };

/// What an editor window and the commands need of the frame around it.
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
    /// Writes the editor's document to the file of its title without asking, even while it is untitled.
    virtual SaveOutcome saveUnderTitle(frmPrFile &editor) = 0;
    /// Keeps the unsaved document for the next start, beyond the end of its window. False when that is not possible.
    virtual bool keepForNextStart(const frmPrFile &editor) = 0;

    virtual void showParameterCount(int count) = 0;
    virtual void showPrNumber(const QString &number) = 0;
    /// Shows the message in the status bar and announces it; an empty one ends what is shown.
    virtual void showNotice(const QString &message) = 0;

    /// Enables the tool-bar buttons of the commands that need this.
    virtual void enableButtons(CommandNeeds needs, bool enabled) = 0;

    virtual bool isBarShown(Bar bar) const = 0;
    /// Shows or hides the bar, and ticks or unticks its line in every menu.
    virtual void showBar(Bar bar, bool shown) = 0;

    // Commands that need no document
    virtual void open() = 0;
    virtual void openRecent(const QString &fileName) = 0;
    virtual void quit() = 0;
    virtual void arrange(Arrangement arrangement) = 0;
    virtual void showHelp() = 0;
    virtual void showAbout() = 0;
    /// Puts the focus into the box that jumps to a parameter number.
    virtual void enterJumpBox() = 0;

    /// Puts the list of open windows at the end of a Window menu.
    virtual void fillWindowList(QMenu &menu) = 0;
};
