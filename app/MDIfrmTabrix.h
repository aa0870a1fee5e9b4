#pragma once

#include "app/DocumentFlows.h"
#include "app/FrameFileHost.h"
#include "app/RecentMenus.h"
#include "app/RecoveryKeeper.h"
#include "editor/EditorFrame.h"

#include <QMainWindow>

class CommandMenus;
class FrameStatusBar;
class FrameToolBar;
class QMdiArea;
class QMdiSubWindow;
struct CommandInfo;

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
    SaveOutcome saveUnderTitle(frmPrFile &editor) override;
    bool keepForNextStart(const frmPrFile &editor) override { return m_recovery.keepForNextStart(editor); }
    void showParameterCount(int count) override;
    void showPrNumber(const QString &number) override;
    void showNotice(const QString &message) override;
    void enableButtons(CommandNeeds needs, bool enabled) override;
    bool isBarShown(Bar bar) const override;
    void showBar(Bar bar, bool shown) override;
    void open() override { m_documents.OpenPrFile(); }
    void openRecent(const QString &fileName) override;
    void quit() override { close(); }
    void arrange(Arrangement arrangement) override;
    void showHelp() override;
    void showAbout() override;
    void enterJumpBox() override;
    void fillWindowList(QMenu &menu) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void connectMenus();
    void connectKeys();
    void run(const CommandInfo &command);
    void connectEditor(frmPrFile *editor);
    void windowActivated(QMdiSubWindow *window);
    void editorUnloaded();
    void showMenus(const QList<QMenu *> &menus);
    void jumpToParameter(const QString &number);
    QWidget &bar(Bar bar) const;

    QMdiArea *m_area;
    FrameToolBar *m_toolBar;
    FrameStatusBar *m_statusBar;
    CommandMenus *m_menus;
    FrameFileHost m_host;
    DocumentFlows m_documents;
    RecoveryKeeper m_recovery;
    RecentMenus m_recent;
};
