#include "editor/frmPrFile.h"

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"
#include "dialogs/frmKisyuEdit.h"
#include "dialogs/print/PrintCommand.h"
#include "editor/CellExchange.h"
#include "editor/Clipboard.h"
#include "editor/CommandMenus.h"
#include "editor/FindingMarks.h"
#include "editor/GridCommands.h"
#include "editor/GridFilling.h"
#include "editor/GridFinder.h"
#include "editor/GridFont.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "editor/RecentFileGroup.h"
#include "editor/frmVisualInf.h"
#include "grid/SpreadGrid.h"
#include "grid/SpreadHistory.h"
#include "grid/SpreadZoom.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

frmPrFile::frmPrFile(int docNo, EditorFrame &frame, QWidget *parent)
    : QWidget(parent)
    , m_frame(frame)
    , m_grid(new SpreadGrid(this))
    , m_document(new OpenDocument(docNo, m_grid->history(), this))
    , m_menus(new CommandMenus(this, CommandMenus::Scope::Editor))
    , m_commands(new GridCommands(*m_grid, *m_document, this))
    , m_finder(new GridFinder(*m_grid, this))
    , m_findings(new FindingMarks(*m_grid, *m_document, this))
{
    setObjectName(u"frmPrFile"_s);
    m_grid->setObjectName(u"vaspdParam"_s);
    m_grid->setFrameShape(QFrame::NoFrame);
    connect(this, &QWidget::windowTitleChanged, m_grid, &QWidget::setAccessibleName);
    connect(m_document, &OpenDocument::titleChanged, this, &QWidget::setWindowTitle);
    connect(m_document, &OpenDocument::rowCountChanged, this, &frmPrFile::showRowCount);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_grid);
    setFocusProxy(m_grid);
    ApplyUserFont(*this);
    connectMenus();
    layOutParameterGrid(*m_grid, m_document->rowCount());
    connectGrid();
    m_grid->history().start();
    m_document->noteLoaded();
    new SpreadZoom(*m_grid);
}

QList<QMenu *> frmPrFile::menus() const
{
    return m_menus->all();
}

void frmPrFile::connectMenus()
{
    connect(m_menus, &CommandMenus::chosen, this, &frmPrFile::run);
    connect(&m_menus->recentFiles(), &RecentFileGroup::chosen, this,
        [this](const QString &fileName) { m_frame.openRecent(fileName); });
    QMenu &windows = m_menus->menu(MenuName::Window);
    connect(&windows, &QMenu::aboutToShow, this, [this, &windows] { m_frame.fillWindowList(windows); });
}

void frmPrFile::run(const CommandInfo &command)
{
    if (command.ofFrame) {
        command.ofFrame(m_frame);
    } else {
        command.ofEditor(*this);
    }
}

void frmPrFile::connectGrid()
{
    connect(m_grid, &SpreadGrid::cellsEdited, this, &frmPrFile::markChanged);
    connect(m_grid, &SpreadGrid::headerDoubleClicked, m_grid, &SpreadGrid::fitColumnWidth);
    connect(m_grid, &SpreadGrid::cellLeft, this, &frmPrFile::showPrNumber);
    connect(m_grid, &SpreadGrid::contentsChanged, this, &frmPrFile::showPrNumber);
    connect(m_grid, &SpreadGrid::cellLeft, this, &frmPrFile::endNotice);
    connect(m_grid, &SpreadGrid::contentsChanged, this, &frmPrFile::endNotice);
    connect(m_grid, &SpreadGrid::escapePressed, this, &frmPrFile::forgetClipboard);
    connect(m_grid, &SpreadGrid::rightClicked, this,
        [this](int, int, const QPoint &position) { m_menus->menu(MenuName::Edit).popup(position); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &frmPrFile::noteClipboard);
    connect(m_grid, &SpreadGrid::copyRequested, m_commands, &GridCommands::copy);
    connect(m_grid, &SpreadGrid::cutRequested, m_commands, &GridCommands::cut);
    connect(m_grid, &SpreadGrid::pasteRequested, m_commands, &GridCommands::paste);
    connect(m_grid, &SpreadGrid::undoRequested, m_commands, &GridCommands::undo);
    connect(m_grid, &SpreadGrid::redoRequested, m_commands, &GridCommands::redo);
    connect(m_grid, &SpreadGrid::fillRequested, new GridFilling(*m_grid, *m_document, this), &GridFilling::fill);
    connect(m_commands, &GridCommands::copied, this, [this](bool wholeRows) {
        enable(CommandNeeds::CopiedText, true);
        if (wholeRows) {
            enable(CommandNeeds::CopiedRows, true);
        }
    });
}

void frmPrFile::SetPrInfSpread()
{
    fillParameterGrid(*m_grid);
    m_document->noteLoaded();
}

void frmPrFile::SetPrInfSpread(std::span<CellRow> rows)
{
    fillParameterGrid(*m_grid, rows);
    m_document->noteLoaded();
}

void frmPrFile::activate()
{
    endNotice();
    showRowCount();
    showPrNumber();
    updatePaste();
    for (const Bar bar : {Bar::Tool, Bar::Status}) {
        showBarMark(bar, m_frame.isBarShown(bar));
    }
}

void frmPrFile::updatePaste()
{
    const bool hasText = !readClipboard().isEmpty();
    enable(CommandNeeds::CopiedText, hasText);
    enable(CommandNeeds::CopiedRows, hasText && clipboardRecord().kind == ClipboardRecord::WholeRows);
}

void frmPrFile::enable(CommandNeeds needs, bool enabled)
{
    m_menus->enable(needs, enabled);
    m_frame.enableButtons(needs, enabled);
}

void frmPrFile::showRecentFiles(const QStringList &files)
{
    m_menus->recentFiles().show(files);
}

void frmPrFile::showBarMark(Bar bar, bool shown)
{
    m_menus->showBarMark(bar, shown);
}

void frmPrFile::chooseFont()
{
    chooseGridFont(*m_grid);
}

void frmPrFile::chooseColumns()
{
    QList<SpreadGrid *> grids;
    for (const frmPrFile *editor : m_frame.openEditors()) {
        grids << editor->m_grid;
    }
    frmVisualInf(*m_grid, grids, window()).exec();
}

void frmPrFile::markChanged(const GridBlock &block)
{
    m_document->markChanged();
    m_grid->setTextColour(block, QColor(changedCellColour));
}

void frmPrFile::showRowCount()
{
    if (m_frame.activeEditor() == this) {
        m_frame.showParameterCount(m_document->rowCount());
    }
}

void frmPrFile::showPrNumber()
{
    if (m_frame.activeEditor() == this) {
        m_frame.showPrNumber(m_grid->cellText(ParameterColumn::Number, m_grid->activeRow()).toString());
    }
}

void frmPrFile::goToChanged(int step)
{
    m_grid->commitEdit();
    m_grid->goToColoured(QColor(changedCellColour), step);
    m_grid->setFocus();
}

void frmPrFile::goToFinding(int step)
{
    m_grid->commitEdit();
    const QString found = m_findings->goTo(step);
    m_grid->setFocus();
    m_frame.showNotice(found);
}

void frmPrFile::endNotice()
{
    if (m_frame.activeEditor() == this) {
        m_frame.showNotice({});
    }
}

void frmPrFile::forgetClipboard(Qt::KeyboardModifiers modifiers)
{
    if (modifiers == Qt::ControlModifier) {
        return;
    }
    fillClipboard(u""_s, {});
    updatePaste();
}

// Only while the clipboard record is that of a copy of our own: texts that other programs copy are not fetched while
// the user works there. The other windows notice when they become active.
void frmPrFile::noteClipboard()
{
    if (clipboardRecord().kind == ClipboardRecord::Nothing || m_frame.activeEditor() != this) {
        return;
    }
    readClipboard();
    if (clipboardRecord().kind == ClipboardRecord::Nothing) {
        updatePaste();
    }
}

void frmPrFile::closeWindow()
{
    parentWidget() ? parentWidget()->close() : close();
}

void frmPrFile::editFuncCode()
{
    exchangeFuncCode(*m_grid, *m_document);
}

void frmPrFile::editPrCond()
{
    exchangePrCond(*m_grid, *m_document);
}

void frmPrFile::editMachineInfo()
{
    MachineInfo machine = m_document->machine();
    frmKisyuEdit dialog(window(), machine);
    dialog.exec();
    if (dialog.isChanged()) {
        m_document->setMachine(machine);
    }
}

void frmPrFile::print()
{
    m_grid->commitEdit();
    printDocument(window(), *m_grid, m_document->machine(), m_document->title());
}

QSize frmPrFile::sizeHint() const
{
    constexpr int minRows = 10;
    constexpr int maxRows = 50;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return m_grid->sizeForRows(std::clamp(m_grid->rowCount(), minRows, maxRows)) + QSize(bar, bar);
}

bool frmPrFile::queryUnload()
{
    m_grid->commitEdit();
    if (!m_document->isChanged()) {
        return true;
    }
    m_frame.makeActive(*this);
    const QString prompt = ResString(Text::SaveChangesQuestion, {u"|1"_s, m_document->title()});
    switch (MessageBox::askYesNoCancel(window(), prompt, ResString(Text::FrameTitle))) {
    case MessageBox::Answer::Yes:
        return saveToClose();
    case MessageBox::Answer::No:
        return true;
    case MessageBox::Answer::Cancel:
        break;
    }
    return false;
}

/// Whether the window may close: its document is in the file or, if saving failed, kept for the next start.
bool frmPrFile::saveToClose()
{
    if (m_frame.save(*this) == SaveOutcome::Declined) {
        return false;
    }
    if (!m_document->isChanged() || m_frame.keepForNextStart(*this)) {
        return true;
    }
    MessageBox::showExclamation(window(), ownText(OwnText::ChangesNotKept), m_document->title());
    return false;
}

void frmPrFile::closeEvent(QCloseEvent *event)
{
    if (!queryUnload()) {
        event->ignore();
        return;
    }
    m_document->release();
    event->accept();
    emit unloaded();
}
