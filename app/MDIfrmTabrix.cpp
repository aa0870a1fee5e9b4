#include "app/MDIfrmTabrix.h"

#include "app/FrameStatusBar.h"
#include "app/FrameToolBar.h"
#include "app/QtTexts.h"
#include "app/WindowArrangement.h"
#include "app/frmVersion.h"
#include "app/services/Common.h"
#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/MenuKey.h"
#include "desktop/MessageBox.h"
#include "desktop/PlainCaption.h"
#include "desktop/RefusedInput.h"
#include "editor/CommandMenus.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "editor/RecentFileGroup.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/FileName.h"
#include "runtime/NumberText.h"
#include "runtime/SystemPath.h"
#include "storage/BackupTidying.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int contentsContext = 1;
constexpr auto quietTime = std::chrono::seconds(3); // after the start, until the window is shown and its file is open

constexpr std::pair<qint16, Qt::WindowState> windowStates[] = {
    {0, Qt::WindowNoState},
    {1, Qt::WindowMinimized},
    {2, Qt::WindowMaximized},
};

Qt::WindowStates windowStateFrom(qint16 stored)
{
    const auto found = std::ranges::find(windowStates, stored, [](const auto &state) { return state.first; });
    return found == std::end(windowStates) ? Qt::WindowNoState : found->second;
}

qint16 storedWindowState(Qt::WindowStates states)
{
    const auto found = std::ranges::find_if(
        windowStates, [states](const auto &state) { return state.first != 0 && states.testFlag(state.second); });
    return found == std::end(windowStates) ? qint16(0) : found->first;
}

/// The last row whose parameter number equals the number that text begins with; 0 if there is none.
int lastRowWithNumber(const SpreadGrid &grid, const QString &text)
{
    const auto number = toInt16(leadingNumber(text));
    int row = number ? grid.rowCount() : 0;
    while (row > 0 && numericValue(grid.cellText(ParameterColumn::Number, row)) != double(*number)) {
        --row;
    }
    return row;
}

} // namespace

MDIfrmTabrix::MDIfrmTabrix()
    : m_area(new QMdiArea(this))
    , m_toolBar(new FrameToolBar(this))
    , m_statusBar(new FrameStatusBar(this))
    , m_menus(new CommandMenus(this, CommandMenus::Scope::Frame))
    , m_host(*this)
    , m_documents(*m_area, *this, m_host)
    , m_recovery(m_documents)
    , m_recent(m_menus->recentFiles(), *this)
{
    setObjectName(u"MDIfrmTabrix"_s);
    setContextMenuPolicy(Qt::NoContextMenu); // the Visible menu shows and hides the bars
    setAcceptDrops(true);
    setGeometry(screen()->availableGeometry());
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder); // closing a window leads back to the one before
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    addToolBar(m_toolBar);
    setStatusBar(m_statusBar);
    showMenus(m_menus->all());
    connectMenus();
    connect(m_toolBar, &FrameToolBar::chosen, this, &MDIfrmTabrix::run);
    connectKeys();
    new MenuKey(this);
    m_toolBar->enableDocumentButtons(false);
    connect(m_statusBar, &FrameStatusBar::jumpRequested, this, &MDIfrmTabrix::jumpToParameter);
    connect(m_statusBar, &FrameStatusBar::jumpGivenUp, this, [this] {
        if (const frmPrFile *editor = activeEditor()) {
            editor->vaspdParam().setFocus();
        }
    });
    connect(m_area, &QMdiArea::subWindowActivated, this, &MDIfrmTabrix::windowActivated);
    connect(&m_documents, &DocumentFlows::editorCreated, this, &MDIfrmTabrix::connectEditor);
    connect(&m_documents, &DocumentFlows::documentOpened, this, [this] { m_toolBar->enableDocumentButtons(true); });
    connect(&m_documents, &DocumentFlows::fileUsed, this,
        [this](const QString &fileName) { m_recent.AddRecentFile(fileName); });
}

MDIfrmTabrix::~MDIfrmTabrix()
{
    // The editor windows use the frame to the last, and ask the area which one is active.
    m_area->disconnect(this);
    qDeleteAll(m_area->subWindowList());
    delete m_area;
}

void MDIfrmTabrix::load(const QString &commandLine)
{
    SelectLanguage();
    loadQtTexts();
    MessageBox::setButtonTexts(ResString(Text::Ok), ResString(Text::Yes), ResString(Text::No), ResString(Text::Cancel));
    RefusedInput::setWording(limitText);
    HelpFilePath = helpFileOf(LanguageBase);
    qint16 windowState = 0;
    LoadWindowSettings(windowState);
    // Never minimised, not even before it is shown: a window manager may take a window for an icon from then on.
    setWindowState(windowStateFrom(windowState) & ~Qt::WindowMinimized);
    LoadUserFont(UserFont.FontName, UserFont.FontSize, UserFont.FontItalic, UserFont.FontBold);
    SetFrameCaptions();
    m_toolBar->clearTip();
    m_toolBar->loadPictures();
    m_documents.NewDocumentWindow(1);
    if (!commandLine.isEmpty()) {
        m_documents.OpenPrFile(absoluteFileName(commandLine));
    }
    m_recent.BuildRecentMenus();
    setWindowState(Qt::WindowMaximized); // last, so that the frame opens maximised whatever was restored
    if (const auto recovered = m_recovery.recover(); !recovered) {
        m_host.showFailure(recovered.failure(), windowTitle());
    }
    QTimer::singleShot(quietTime, this, [] { tidyBackups(); });
}

void MDIfrmTabrix::SetFrameCaptions()
{
    setWindowTitle(ResString(Text::FrameTitle));
    m_statusBar->setCaptions(ResString(Text::ParameterCount), ResString(Text::ParameterNumber));
    m_menus->setCaptions();
}

void MDIfrmTabrix::ShowTip()
{
    m_toolBar->ShowTip();
}

void MDIfrmTabrix::connectMenus()
{
    connect(m_menus, &CommandMenus::chosen, this, &MDIfrmTabrix::run);
    connect(&m_menus->recentFiles(), &RecentFileGroup::chosen, this, &MDIfrmTabrix::openRecent);
    QMenu &windows = m_menus->menu(MenuName::Window);
    connect(&windows, &QMenu::aboutToShow, this, [this, &windows] { fillWindowList(windows); });
}

// Keys without a menu line; they work wherever the focus is.
void MDIfrmTabrix::connectKeys()
{
    for (const CommandInfo &command : commands()) {
        if (command.menu == MenuName::None && command.hasKey()) {
            connect(new QShortcut(command.key, this), &QShortcut::activated, this, [this, &command] { run(command); });
        }
    }
}

void MDIfrmTabrix::run(const CommandInfo &command)
{
    if (command.ofFrame) {
        command.ofFrame(*this);
    } else if (frmPrFile *editor = activeEditor()) {
        command.ofEditor(*editor);
    }
}

void MDIfrmTabrix::connectEditor(frmPrFile *editor)
{
    m_toolBar->enableDocumentButtons(true);
    m_recent.repeatIn(*editor);
    connect(editor, &frmPrFile::unloaded, this, &MDIfrmTabrix::editorUnloaded);
}

void MDIfrmTabrix::windowActivated(QMdiSubWindow *window)
{
    // No window is active while the frame is in the background; its menus stay then.
    if (auto *editor = window ? qobject_cast<frmPrFile *>(window->widget()) : nullptr) {
        showMenus(editor->menus());
        editor->activate();
    }
}

void MDIfrmTabrix::editorUnloaded()
{
    if (openEditors().isEmpty()) {
        m_toolBar->enableDocumentButtons(false);
        m_statusBar->showNoDocument();
        showMenus(m_menus->all());
    }
}

void MDIfrmTabrix::showMenus(const QList<QMenu *> &menus)
{
    menuBar()->clear();
    for (QMenu *menu : menus) {
        menuBar()->addMenu(menu);
    }
}

frmPrFile *MDIfrmTabrix::activeEditor() const
{
    const QMdiSubWindow *window = m_area->currentSubWindow();
    return window ? qobject_cast<frmPrFile *>(window->widget()) : nullptr;
}

void MDIfrmTabrix::makeActive(frmPrFile &editor)
{
    if (isMinimized()) { // no window inside would become the active one
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
    m_area->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(editor.parentWidget()));
}

SaveOutcome MDIfrmTabrix::save(frmPrFile &editor)
{
    return m_documents.SavePrFile(editor, editor.document().path());
}

SaveOutcome MDIfrmTabrix::saveAs(frmPrFile &editor)
{
    return m_documents.SavePrFile(editor);
}

SaveOutcome MDIfrmTabrix::saveUnderTitle(frmPrFile &editor)
{
    return m_documents.write(editor, editor.document().title());
}

void MDIfrmTabrix::showParameterCount(int count)
{
    m_statusBar->showParameterCount(count);
}

void MDIfrmTabrix::showPrNumber(const QString &number)
{
    m_statusBar->showPrNumber(number);
}

void MDIfrmTabrix::showNotice(const QString &message)
{
    m_statusBar->showNotice(message);
}

void MDIfrmTabrix::enableButtons(CommandNeeds needs, bool enabled)
{
    m_toolBar->enableButtons(needs, enabled);
}

QWidget &MDIfrmTabrix::bar(Bar bar) const
{
    return bar == Bar::Tool ? static_cast<QWidget &>(*m_toolBar) : static_cast<QWidget &>(*m_statusBar);
}

bool MDIfrmTabrix::isBarShown(Bar bar) const
{
    return !this->bar(bar).isHidden();
}

void MDIfrmTabrix::showBar(Bar bar, bool shown)
{
    this->bar(bar).setVisible(shown);
    m_menus->showBarMark(bar, shown);
    for (frmPrFile *editor : openEditors()) {
        editor->showBarMark(bar, shown);
    }
}

void MDIfrmTabrix::fillWindowList(QMenu &menu)
{
    constexpr int maxAccessKeys = 9;
    const QString listed = u"windowListItem"_s;
    for (QAction *old : menu.findChildren<QAction *>(listed, Qt::FindDirectChildrenOnly)) {
        delete old;
    }
    int number = 0;
    for (frmPrFile *editor : openEditors()) {
        if (number++ == 0) {
            menu.addSeparator()->setObjectName(listed);
        }
        const QString title = plainMenuText(editor->document().title());
        const QString caption = number <= maxAccessKeys ? u"&%1 %2"_s : u"%1 %2"_s;
        QAction *item = menu.addAction(caption.arg(QString::number(number), title));
        item->setObjectName(listed);
        item->setCheckable(true);
        item->setChecked(editor == activeEditor());
        item->setIcon(editor->parentWidget()->windowIcon());
        connect(item, &QAction::triggered, editor, [this, editor] { makeActive(*editor); });
    }
}

void MDIfrmTabrix::openRecent(const QString &fileName)
{
    m_documents.OpenPrFile(fileName);
    m_recent.BuildRecentMenus();
}

void MDIfrmTabrix::jumpToParameter(const QString &text)
{
    frmPrFile *editor = activeEditor();
    if (!editor) {
        return;
    }
    SpreadGrid &grid = editor->vaspdParam();
    if (const int row = lastRowWithNumber(grid, text)) {
        grid.setActiveCell(ParameterColumn::Number, row);
        grid.setTopRow(row);
    }
    grid.setFocus();
}

void MDIfrmTabrix::enterJumpBox()
{
    if (!isBarShown(Bar::Status)) {
        showBar(Bar::Status, true);
    }
    m_statusBar->enterJumpBox();
}

void MDIfrmTabrix::arrange(Arrangement arrangement)
{
    if (arrangement == Arrangement::Cascaded) {
        cascadeWindows(*m_area);
    } else {
        tileWindows(*m_area);
    }
}

void MDIfrmTabrix::showHelp()
{
    ShowHelp(this, contentsContext);
}

void MDIfrmTabrix::showAbout()
{
    frmVersion box(this);
    box.CaptionSet();
    box.exec();
}

void MDIfrmTabrix::closeEvent(QCloseEvent *event)
{
    for (const frmPrFile *editor : openEditors()) {
        if (!editor->parentWidget()->close()) {
            event->ignore();
            return;
        }
    }
    SaveWindowSettings(storedWindowState(windowState()));
    event->accept();
}

void MDIfrmTabrix::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    }
}

void MDIfrmTabrix::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            m_documents.OpenPrFile(QDir::toNativeSeparators(fileNameFromUrl(url)));
        }
    }
}
