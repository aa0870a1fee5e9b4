#pragma once

#include <QList>
#include <QWidget>

class EditorFrame;
class EditorMenus;
class GridCommands;
class GridFinder;
class OpenDocument;
class QAction;
class QMenu;
class SpreadGrid;
struct GridBlock;

/// The window in which one parameter file is edited. Its title is its document's; its grid is the only live copy of the
/// rows.
class frmPrFile : public QWidget
{
    Q_OBJECT

public:
    /// docNo counts from 1; MachineInfos and DocFlags must hold it.
    frmPrFile(int docNo, EditorFrame &frame, QWidget *parent = nullptr);

    OpenDocument &document() const { return *m_document; }
    SpreadGrid &vaspdParam() const { return *m_grid; }
    QList<QMenu *> menus() const;
    GridFinder &finder() const { return *m_finder; }

    /// To the next cell (step 1) or the one before (-1) that is shown as changed, around the end of the grid.
    void goToChanged(int step);

    /// Copies the rows just read into the grid.
    void SetPrInfSpread();

    /// Brings the frame's labels, buttons and this window's menus up to date; to be called whenever it becomes active.
    void activate();
    void showRecentFiles(const QStringList &files);
    /// Sets the check mark of bar 0 (tool bar) or 1 (status bar).
    void showBarMark(int bar, bool shown);

    // The commands that the tool bar shares with the menus
    void cut();
    void copy();
    void paste();
    void addPaste();
    void addLine();
    void deleteLines();
    void editFuncCode();
    void editPrCond();
    void editMachineInfo();
    void print();

    QSize sizeHint() const override;

signals:
    void openRequested();
    void openRecentRequested(const QString &fileName);
    void exitRequested();
    void aboutRequested();
    /// 0: cascaded, 1: tiled
    void arrangeRequested(int arrangement);
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectMenus();
    void connectGrid();
    void markChanged(const GridBlock &block);
    void forgetClipboard(Qt::KeyboardModifiers modifiers);
    void noteClipboard();
    void updatePaste();
    void toggleBar(int bar);
    void chooseColumns();
    void showRowCount();
    void showPrNumber();
    QAction &action(QStringView name) const;
    bool queryUnload();
    bool saveToClose();

    EditorFrame &m_frame;
    SpreadGrid *m_grid;
    OpenDocument *m_document;
    EditorMenus *m_menus;
    GridCommands *m_commands;
    GridFinder *m_finder;
};
