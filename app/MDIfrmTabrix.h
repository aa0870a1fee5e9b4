#pragma once

#include "app/DocumentFlows.h"
#include "app/FrameFileHost.h"
#include "app/RecentMenus.h"
#include "app/RecoveryKeeper.h"
#include "editor/EditorFrame.h"

#include <QMainWindow>

class FrameMenus;
class FrameStatusBar;
class FrameToolBar;
class QMdiArea;
class QMdiSubWindow;

/// The frame window: it holds the editor windows, shows the menus of the active one, and passes commands on to it.
class MDIfrmTabrix : public QMainWindow, public EditorFrame
{
    Q_OBJECT

public:
    MDIfrmTabrix();
    ~MDIfrmTabrix() override;

    /// The program's start-up. commandLine is one file name, quotes included; empty for none. A relative one is that of
    /// the working folder at this moment.
    void load(const QString &commandLine);

    void SetFrameCaptions();
    /// Shows or ends the tool tip of the button that the mouse was last over.
    void ShowTip();
    DocumentFlows &documents() { return m_documents; }
    RecoveryKeeper &recovery() { return m_recovery; }

    // EditorFrame
    frmPrFile *activeEditor() const override;
    QList<frmPrFile *> openEditors() const override { return m_documents.openEditors(); }
    void makeActive(frmPrFile &editor) override;
    SaveOutcome save(frmPrFile &editor) override;
    SaveOutcome saveAs(frmPrFile &editor) override;
    bool keepForNextStart(const frmPrFile &editor) override { return m_recovery.keepForNextStart(editor); }
    void showParameterCount(int count) override;
    void showPrNumber(const QString &number) override;
    void enablePasteButton(bool enabled) override;
    void enableAddPasteButton(bool enabled) override;
    bool isBarShown(int bar) const override;
    void showBar(int bar, bool shown) override;
    void fillWindowList(QMenu &menu) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void connectMenus();
    void connectToolBar();
    void connectKeys();
    void connectEditor(frmPrFile *editor);
    void windowActivated(QMdiSubWindow *window);
    void editorUnloaded();
    void showMenus(const QList<QMenu *> &menus);
    void openRecent(const QString &fileName);
    void runEditCommand(int index);
    void saveByButton();
    void printByButton();
    void jumpToParameter(const QString &number);
    void enterJumpBox();
    void arrangeWindows(int arrangement);
    void showAbout();
    QWidget &bar(int bar) const;

    QMdiArea *m_area;
    FrameToolBar *m_toolBar;
    FrameStatusBar *m_statusBar;
    FrameMenus *m_menus;
    FrameFileHost m_host;
    DocumentFlows m_documents;
    RecoveryKeeper m_recovery;
    RecentMenus m_recent;
};
