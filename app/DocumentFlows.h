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
class OpenDocument;
class QMdiArea;
struct RecoveryCopy;
class frmPrFile;

/// Opening, saving and closing of documents: slots, file dialogs, reader, writer and editor windows.
/// Slots count from 1; slot n's window, machine information and flags share the number.
///
/// While a file is read or written, events run between its rows, but nothing new begins: what the user does meanwhile,
/// a second open or save included, is done afterwards.
class DocumentFlows : public QObject
{
    Q_OBJECT

public:
    DocumentFlows(QMdiArea &area, EditorFrame &frame, FileHost &host);

    /// Asks for a file and opens it. Returns true when a window was opened.
    bool OpenPrFile();
    /// Opens fileName as it is given; an empty name is the reader's to refuse. Returns true when a window was opened.
    bool OpenPrFile(const QString &fileName);

    /// Saves the editor's document under fileName, and names document and recent file after it. Asks for a name if
    /// fileName is empty or what untitled documents are called.
    SaveOutcome SavePrFile(frmPrFile &editor, const QString &fileName = {});

    /// Writes the editor's document to fileName, without a dialog for the name.
    SaveOutcome write(frmPrFile &editor, const QString &fileName);

    /// Asks for the name to save the document under, beginning with its own folder and name if it has a file. Empty
    /// if the user cancelled.
    QString ShowFileDialog(const OpenDocument &document);

    /// Creates and shows the editor window of an untitled document with one row.
    void NewDocumentWindow(int slot);

    /// Opens a document of a crashed instance, changed and under its name as it was, without touching its file.
    /// Returns its slot.
    int openRecovered(const RecoveryCopy &copy);

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

private:
    bool postponedFor(frmPrFile &editor, std::function<void()> save);
    SaveOutcome write(frmPrFile &editor, const QString &fileName, bool mayReplace);
    static QString folderOf(const QString &path);
    static void keepFolder(const QString &fileName);
    frmPrFile &createEditor(int slot, const QString &fileName);
    void showEditor(frmPrFile &editor);

    QMdiArea &m_area;
    EditorFrame &m_frame;
    FileHost &m_host;
    WindowPlacer m_placer;
    QMap<int, QPointer<frmPrFile>> m_windows; ///< the open ones, by slot
};
