#include "help/HelpViewer.h"

#include "desktop/FocusFrame.h"
#include "help/HelpBrowser.h"
#include "help/HelpSearchPane.h"
#include "help/HelpTextBox.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int lettersOfTitles = 38; ///< the width of the contents tree, in letters

} // namespace

HelpViewer::HelpViewer(std::unique_ptr<HelpLibrary> library)
    : m_library(std::move(library))
    , m_browser(new HelpBrowser(*m_library))
    , m_searchPane(new HelpSearchPane(*m_library))
    , m_tabs(new QTabWidget)
    , m_splitter(new QSplitter)
{
    setObjectName(u"helpWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false); // closing the frame ends the program, whether help is open or not
    m_browser->setObjectName(u"helpBrowser"_s);
    buildToolBar();
    buildPanes();
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpViewer::followPage);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &HelpViewer::leave);
    connect(new QShortcut(QKeySequence(QKeySequence::Close), this), &QShortcut::activated, this, &QWidget::close);
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { delete this; });
    resize(QSize(1000, 740).boundedTo(screen()->availableSize() * 0.9));
    widenForTitles();
}

// The tree and the index use the library: they must be deleted before it.
HelpViewer::~HelpViewer()
{
    delete takeCentralWidget();
}

void HelpViewer::showTopic(int contextId)
{
    showPage(m_library->topic(contextId));
    setWindowState(windowState() & ~Qt::WindowMinimized);
    showFindBox(true);
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

void HelpViewer::useFont(const QFont &font)
{
    if (font != this->font()) {
        setFont(font);
        m_browser->setFont(font);
        widenForTitles();
    }
}

// The same number of letters in any font, but the page keeps most of the window, and all tabs are visible in any case.
void HelpViewer::widenForTitles()
{
    const int wanted = std::min(lettersOfTitles * fontMetrics().averageCharWidth(), width() * 2 / 5);
    const int titles = std::max(wanted, m_tabs->tabBar()->sizeHint().width());
    m_splitter->setSizes({titles, width() - titles});
}

void HelpViewer::attachTo(QWidget *owner)
{
    create();
    auto *dialog = owner ? qobject_cast<QDialog *>(owner->window()) : nullptr;
    if (!dialog || !dialog->isModal()) {
        windowHandle()->setTransientParent(nullptr);
        return;
    }
    windowHandle()->setTransientParent(dialog->windowHandle());
    connect(dialog, &QDialog::finished, this, [this] { windowHandle()->setTransientParent(nullptr); });
}

void HelpViewer::buildToolBar()
{
    auto *bar = new QToolBar(this);
    bar->setObjectName(u"helpToolBar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    setContextMenuPolicy(Qt::NoContextMenu);
    addPageActions(*bar);
    addFindBox(*bar);
    addToolBar(bar);
}

void HelpViewer::addPageActions(QToolBar &bar)
{
    QAction *back = addAction(bar, u"back"_s, QKeySequence::Back);
    back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    back->setEnabled(false);
    connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);

    QAction *forward = addAction(bar, u"forward"_s, QKeySequence::Forward);
    forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    forward->setEnabled(false);
    connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    QAction *home = addAction(bar, u"home"_s, QKeySequence(Qt::ALT | Qt::Key_Home));
    connect(home, &QAction::triggered, this, [this] { showPage(m_library->topic(1)); });

    connect(addAction(bar, u"print"_s, QKeySequence::Print), &QAction::triggered, this, &HelpViewer::printPage);
}

void HelpViewer::addFindBox(QToolBar &bar)
{
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(space);
    m_find = new HelpTextBox(u"helpFind"_s, m_library->label(u"find"_s));
    m_find->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_findAction = bar.addWidget(m_find);
    connect(m_find, &QLineEdit::textEdited, m_browser, &HelpBrowser::findWhileTyping);
    const auto findNext = [this] { m_browser->findAround(m_find->text(), false); };
    const auto findPrevious = [this] { m_browser->findAround(m_find->text(), true); };
    connect(m_find, &QLineEdit::returnPressed, this, findNext);
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, findNext);
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this, findPrevious);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        showFindBox(true);
        m_find->setFocus();
        m_find->selectAll();
    });
}

// Escape leads from the box that finds on the page back to the page, and from everywhere else out of the help.
void HelpViewer::leave()
{
    if (!m_find->hasFocus()) {
        close();
        return;
    }
    showFindBox(false);
    m_browser->setFocus();
}

// The tool bar alone would show the box later, but it is to get the focus now.
void HelpViewer::showFindBox(bool shown)
{
    m_findAction->setVisible(shown);
    m_find->setVisible(shown);
}

QAction *HelpViewer::addAction(QToolBar &bar, const QString &name, const QKeySequence &key)
{
    QAction *action = bar.addAction(m_library->label(name));
    action->setObjectName(u"help"_s + name);
    action->setShortcut(key);
    const QString keyText = key.toString(QKeySequence::NativeText);
    action->setToolTip(u"%1 (%2)"_s.arg(action->text(), keyText));
    return action;
}

void HelpViewer::buildPanes()
{
    m_tabs->setObjectName(u"helpTabs"_s);
    m_tabs->addTab(contentsPane(), m_library->label(u"contents"_s));
    m_tabs->addTab(indexPane(), m_library->label(u"index"_s));
    m_tabs->addTab(m_searchPane, m_library->label(u"search"_s));
    connect(m_searchPane, &HelpSearchPane::wordsChanged, m_browser, &HelpBrowser::markWords);
    connect(m_searchPane, &HelpSearchPane::spanChosen, this, &HelpViewer::showHit);
    m_splitter->addWidget(m_tabs);
    m_splitter->addWidget(m_browser);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
    const QList<QFrame *> panes{
        m_browser, m_library->engine().contentWidget(), m_library->engine().indexWidget(), &m_searchPane->hits()};
    for (QFrame *pane : panes) {
        new FocusFrame(*pane);
    }
}

QWidget *HelpViewer::contentsPane()
{
    QHelpContentWidget *tree = m_library->engine().contentWidget();
    QHelpContentModel *model = m_library->engine().contentModel();
    tree->setObjectName(u"helpContents"_s);
    tree->setAccessibleName(m_library->label(u"contents"_s));
    connect(model, &QHelpContentModel::contentsCreated, tree, &QTreeView::expandAll);
    connect(model, &QHelpContentModel::contentsCreated, this, [this] { markInContents(m_browser->source()); });
    connect(tree, &QHelpContentWidget::linkActivated, this, &HelpViewer::showPage);
    connect(tree, &QTreeView::clicked, this,
        [this, model](const QModelIndex &index) { showPage(model->contentItemAt(index)->url()); });
    return tree;
}

QWidget *HelpViewer::indexPane()
{
    QHelpIndexWidget *index = m_library->engine().indexWidget();
    index->setObjectName(u"helpIndex"_s);
    index->setAccessibleName(m_library->label(u"index"_s));
    connect(index, &QListView::clicked, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, this,
        [this](const QHelpLink &document) { showPage(document.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, this,
        [this](const QList<QHelpLink> &documents) { showPage(documents.first().url); });
    auto *filter = new HelpTextBox(u"helpIndexFilter"_s, m_library->label(u"indexFilter"_s));
    connect(filter, &QLineEdit::textChanged, index, [index](const QString &text) { index->filterIndices(text); });
    connect(filter, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    return boxAbove(filter, index);
}

QWidget *HelpViewer::boxAbove(QLineEdit *box, QWidget *list)
{
    auto *pane = new QWidget;
    auto *layout = new QVBoxLayout(pane);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(box);
    layout->addWidget(list);
    return pane;
}

void HelpViewer::showPage(const QUrl &address)
{
    if (address.isValid() && address != m_browser->source()) {
        m_browser->setSource(address);
    }
}

// While the browser announces a page, its source() is still the previous one.
void HelpViewer::followPage(const QUrl &address)
{
    setWindowTitle(m_browser->documentTitle());
    m_browser->setAccessibleName(windowTitle());
    markInContents(address);
}

void HelpViewer::markInContents(const QUrl &address)
{
    QHelpContentWidget *tree = m_library->engine().contentWidget();
    const QModelIndex index = tree->indexOf(address.adjusted(QUrl::RemoveFragment));
    if (index.isValid()) {
        tree->setCurrentIndex(index);
    }
}

void HelpViewer::showHit(const QUrl &page, TextSpan span)
{
    showPage(page);
    m_browser->showSpan(span);
}

void HelpViewer::printPage()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) {
        m_browser->print(&printer);
    }
}
