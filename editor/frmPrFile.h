#pragma once

#include "editor/EditorFrame.h"

#include <QList>
#include <QWidget>

#include <span>

class CellRow;
class CommandMenus;
class FindingMarks;
class GridCommands;
class GridFinder;
class OpenDocument;
class QMenu;
class SpreadGrid;
struct CommandInfo;
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
    EditorFrame &frame() const { return m_frame; }
    QList<QMenu *> menus() const;
    GridCommands &commands() const { return *m_commands; }
    GridFinder &finder() const { return *m_finder; }

    /// To the next cell (step 1) or the one before (-1) that is shown as changed, around the end of the grid.
    void goToChanged(int step);
    /// To the next error or warning (step 1) or the one before (-1), and says in the status bar what it is.
    void goToFinding(int step);
    FindingMarks &findings() const { return *m_findings; }

    /// Copies PrRecords into the grid.
    void SetPrInfSpread();
    /// The same with rows as they are shown; rows is given the former ones.
    void SetPrInfSpread(std::span<CellRow> rows);

    /// Brings the frame's labels, buttons and this window's menus up to date; to be called whenever it becomes active.
    void activate();
    void showRecentFiles(const QStringList &files);
    /// Ticks the menu line of a bar that is shown.
    void showBarMark(Bar bar, bool shown);

    // Commands
    void closeWindow();
    void print();
    void editFuncCode();
    void editPrCond();
    void editMachineInfo();
    void chooseFont();
    void chooseColumns();

    QSize sizeHint() const override;

signals:
    void unloaded();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectMenus();
    void connectGrid();
    void markChanged(const GridBlock &block);
    void forgetClipboard(Qt::KeyboardModifiers modifiers);
    void noteClipboard();
    void enable(CommandNeeds needs, bool enabled);
    void updatePaste();
    void showRowCount();
    void showPrNumber();
    void endNotice();
    void run(const CommandInfo &command);
    bool queryUnload();
    bool saveToClose();

    EditorFrame &m_frame;
    SpreadGrid *m_grid;
    OpenDocument *m_document;
    CommandMenus *m_menus;
    GridCommands *m_commands;
    GridFinder *m_finder;
    FindingMarks *m_findings;
};
