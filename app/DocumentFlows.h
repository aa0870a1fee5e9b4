#pragma once

#include "app/WindowPlacer.h"
#include "editor/SaveOutcome.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class EditorFrame;
class FileHost;
class QMdiArea;
struct RecoveryCopy;
class frmPrFile;

/// Opening, saving and closing of documents: slots, file dialogs, reader, writer and editor windows.
/// Slots count from 1; slot n's window, machine information and flags share the number.
///
/// While a file is read or written, events run between its rows, but nothing begins: what the user does then follows
/// afterwards, a second open or save included.
class DocumentFlows : public QObject
{
    Q_OBJECT

public:
    DocumentFlows(QMdiArea &area, EditorFrame &frame, FileHost &host);

    /// Asks for a file and opens it. Returns true when a window was opened.
    bool OpenPrFile();
    /// Opens fileName as it is given; an empty name is the reader's to refuse. Returns true when a window was opened.
    bool OpenPrFile(const QString &fileName);

    /// Saves the editor's document under fileName, and names window and recent file after it. Asks for a name when
    /// fileName is empty or that of an untitled document.
    SaveOutcome SavePrFile(frmPrFile &editor, const QString &fileName = {});

    /// Writes the editor's document to fileName, without a dialog for the name.
    SaveOutcome write(frmPrFile &editor, const QString &fileName);

    /// The name to save the document of that title under, or an empty text when the user cancelled. It begins
    /// with the document's own folder and name, where it has a file.
    QString ShowFileDialog(const QString &title);

    /// Creates and shows the editor window of an untitled document with one row.
    void NewDocumentWindow(int slot);

    /// Opens a document that a crash had cut short, changed as it was and under its name, without touching its file.
    /// Returns its slot.
    int openRecovered(const RecoveryCopy &copy);

    /// Whether a window of that title has no file yet.
    static bool isUntitled(const QString &title);

    /// The lowest free slot, its free mark cleared, or a new one.
    int FindFreeDocumentSlot();

    /// Every open window, by slot.
    QList<frmPrFile *> openEditors() const;

signals:
    /// A window was made; it is not shown yet.
    void editorCreated(frmPrFile *editor);
    /// A file was opened; its window is active.
    void documentOpened();
    /// A file was opened or saved under that name.
    void fileUsed(const QString &fileName);
    /// Everything that the document holds is in its file.
    void documentSaved(int slot);

private:
    bool postponedFor(frmPrFile &editor, std::function<void()> save);
    SaveOutcome write(frmPrFile &editor, const QString &fileName, bool mayReplace);
    static QString folderOf(const QString &title);
    static void keepFolder(const QString &fileName);
    frmPrFile &createEditor(int slot);
    void showEditor(frmPrFile &editor);

    QMdiArea &m_area;
    EditorFrame &m_frame;
    FileHost &m_host;
    WindowPlacer m_placer;
    QMap<int, QPointer<frmPrFile>> m_windows; ///< the open ones, by slot
};
