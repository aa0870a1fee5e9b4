#include "app/DocumentFlows.h"

#include "app/ChangeMarks.h"
#include "app/EditorSaveHost.h"
#include "app/services/Language.h"
#include "desktop/BusyCursor.h"
#include "desktop/FileDialog.h"
#include "desktop/InputHold.h"
#include "desktop/PlainCaption.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "document/RecoveryCopy.h"
#include "editor/EditorFrame.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterCells.h"
#include "editor/RecoveryCells.h"
#include "editor/frmPrFile.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int parameterFilter = 2;

} // namespace

DocumentFlows::DocumentFlows(QMdiArea &area, EditorFrame &frame, FileHost &host)
    : m_area(area), m_frame(frame), m_host(host), m_placer(area)
{
}

bool DocumentFlows::OpenPrFile()
{
    if (InputHold::postpone(*this, [this] { OpenPrFile(); })) {
        return false;
    }
    const frmPrFile *active = m_frame.activeEditor();
    const QString fileName = askForFileToOpen(m_area.window(),
        {.defaultExtension = ResString(Text::DefaultExtension),
            .filter = ResString(Text::OpenFilter),
            .filterIndex = parameterFilter,
            .folder = folderOf(active ? active->document().path() : QString())});
    keepFolder(fileName);
    return !fileName.isEmpty() && OpenPrFile(fileName);
}

bool DocumentFlows::OpenPrFile(const QString &fileName)
{
    if (InputHold::postpone(*this, [this, fileName] { OpenPrFile(fileName); })) {
        return false;
    }
    const BusyCursor busy;
    const InputHold hold;
    const int slot = FindFreeDocumentSlot();
    std::vector<CellRow> rows;
    if (ReadPrFile(fileName, qint16(slot), rows, m_host)) {
        forgetDocument(slot); // its number is lost, so that nothing could use what was read
        return false;
    }
    frmPrFile &editor = createEditor(slot, fileName);
    editor.SetPrInfSpread(rows);
    showEditor(editor);
    emit documentOpened();
    emit fileUsed(fileName);
    return true;
}

SaveOutcome DocumentFlows::SavePrFile(frmPrFile &editor, const QString &fileName)
{
    if (postponedFor(editor, [this, &editor, fileName] { SavePrFile(editor, fileName); })) {
        return SaveOutcome::Failed;
    }
    const QString path = OpenDocument::pathFromName(fileName);
    const bool asks = path.isEmpty();
    const QString target = asks ? ShowFileDialog(editor.document()) : path;
    const SaveOutcome outcome = write(editor, target, asks); // the dialog has asked before it gave a name that exists
    if (outcome == SaveOutcome::Saved) {
        editor.document().setPath(target);
        emit fileUsed(target);
    }
    return outcome;
}

SaveOutcome DocumentFlows::write(frmPrFile &editor, const QString &fileName)
{
    if (postponedFor(editor, [this, &editor, fileName] { write(editor, fileName); })) {
        return SaveOutcome::Failed;
    }
    return write(editor, fileName, false);
}

SaveOutcome DocumentFlows::write(frmPrFile &editor, const QString &fileName, bool mayReplace)
{
    editor.vaspdParam().commitEdit();
    const InputHold hold;
    const ParameterCells cells(editor.vaspdParam());
    EditorSaveHost host(m_host, m_frame, editor);
    if (const auto saved = editor.document().save(fileName, cells, mayReplace, host); !saved) {
        tellOfFailure(saved.failure(), fileName, host);
        return host.isDeclined() ? SaveOutcome::Declined : SaveOutcome::Failed;
    }
    return SaveOutcome::Saved;
}

/// Postpones a save while a file is being read or written. It is dropped if the window is closed meanwhile.
bool DocumentFlows::postponedFor(frmPrFile &editor, std::function<void()> save)
{
    return InputHold::postpone(editor, [this, &editor, save = std::move(save)] {
        if (openEditors().contains(&editor)) {
            save();
        }
    });
}

QString DocumentFlows::ShowFileDialog(const OpenDocument &document)
{
    // Fixed English texts in either language, unlike the dialog that opens files
    QString fileName = askForFileToSave(m_area.window(),
        {.defaultExtension = u"INV"_s,
            .filter = u"All Files(*.*)|*.*|Parameter Files(*.inv;*.ine)|*.inv;*.ine"_s,
            .filterIndex = parameterFilter,
            .folder = folderOf(document.path()),
            .fileName = QFileInfo(document.path()).fileName()});
    keepFolder(fileName);
    return fileName;
}

/// Where a file dialog begins: beside the document of that path, in the working folder while it has no file.
QString DocumentFlows::folderOf(const QString &path)
{
    const QString folder = path.isEmpty() ? QString() : QFileInfo(path).path();
    return QFileInfo(folder).isDir() ? folder : QDir::currentPath();
}

// Both dialogs may begin in the working folder; so the folder that was used last becomes it.
void DocumentFlows::keepFolder(const QString &fileName)
{
    if (!fileName.isEmpty()) {
        QDir::setCurrent(QFileInfo(fileName).path());
    }
}

void DocumentFlows::NewDocumentWindow(int slot)
{
    OpenDocument::prepareUntitled(slot);
    showEditor(createEditor(slot, {}));
}

int DocumentFlows::openRecovered(const RecoveryCopy &copy)
{
    const int slot = FindFreeDocumentSlot();
    OpenDocument::prepareRecovered(slot, copy);
    frmPrFile &editor = createEditor(slot, copy.fileName);
    restoreCells(editor.vaspdParam(), copy);
    editor.document().noteRecovered();
    showEditor(editor);
    emit documentOpened();
    return slot;
}

int DocumentFlows::FindFreeDocumentSlot()
{
    const int last = documentUpperBound();
    for (int slot = 1; slot <= last; ++slot) {
        if (DocFlags[slot].free) {
            DocFlags[slot].free = false;
            MachineInfos[slot] = {}; // the reader keeps what a file does not name
            documentOrigin(slot).findings.reset();
            return slot;
        }
    }
    const int added = last + 1;
    growDocumentTables(std::min(added, highestDocNo)); // the reader refuses a higher number, so no document gets it
    return added;
}

QList<frmPrFile *> DocumentFlows::openEditors() const
{
    QList<frmPrFile *> editors;
    for (const QPointer<frmPrFile> &editor : m_windows) {
        if (editor) {
            editors << editor;
        }
    }
    return editors;
}

frmPrFile &DocumentFlows::createEditor(int slot, const QString &fileName)
{
    auto *editor = new frmPrFile(slot, m_frame);
    m_windows.insert(slot, editor);
    QMdiSubWindow *window = m_area.addSubWindow(editor);
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &frmPrFile::unloaded, this, [this, slot, editor, window] {
        m_windows.remove(slot);
        m_placer.remember(*window, editor->document().title());
    });
    connect(editor, &QWidget::windowTitleChanged, window,
        [window](const QString &title) { window->setWindowTitle(plainTitle(title)); });
    editor->document().setPath(fileName);
    showChangesByIcon(*window, editor->document());
    emit editorCreated(editor);
    return *editor;
}

void DocumentFlows::showEditor(frmPrFile &editor)
{
    auto *window = qobject_cast<QMdiSubWindow *>(editor.parentWidget());
    m_placer.show(*window, editor.document().title());
    m_area.setActiveSubWindow(window);
    editor.setFocus();
}
