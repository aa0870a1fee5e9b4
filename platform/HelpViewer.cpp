#include "platform/HelpViewer.h"

#include "platform/Contrast.h"
#include "platform/FocusFrame.h"
#include "platform/HelpBrowser.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// Desktops that give a palette of their own often leave the colour of placeholders as it is on a light one.
void showPlaceholder(QLineEdit &box, const QPalette &desktop)
{
    const QColor text = desktop.color(QPalette::Text);
    const QColor ground = desktop.color(QPalette::Base);
    const auto half = [](int part, int of) { return (part + of) / 2; };
    const QColor faint(
        half(text.red(), ground.red()), half(text.green(), ground.green()), half(text.blue(), ground.blue()));
    QPalette own;
    own.setColor(QPalette::PlaceholderText, readableOn(ground, faint));
    box.setPalette(own);
}

} // namespace

HelpViewer::HelpViewer(std::unique_ptr<HelpLibrary> library)
    : m_library(std::move(library))
    , m_search(*m_library)
    , m_browser(new HelpBrowser(*m_library))
    , m_tabs(new QTabWidget)
{
    setObjectName(u"helpWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false); // closing the frame ends the program, help open or not
    m_browser->setObjectName(u"helpBrowser"_s);
    buildToolBar();
    buildPanes();
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpViewer::followPage);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence(QKeySequence::Close), this), &QShortcut::activated, this, &QWidget::close);
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { delete this; });
    resize(QSize(1000, 740).boundedTo(screen()->availableSize() * 0.9));
}

// The tree and the index look into the library: they have to go before it.
HelpViewer::~HelpViewer()
{
    delete takeCentralWidget();
}

void HelpViewer::showTopic(int contextId)
{
    showPage(m_library->topic(contextId));
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
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
    m_find = textBox(u"helpFind"_s, u"find"_s);
    m_find->setMaximumWidth(260);
    bar.addWidget(m_find);
    connect(m_find, &QLineEdit::textEdited, m_browser, &HelpBrowser::findWhileTyping);
    const auto findNext = [this] { m_browser->findAround(m_find->text(), false); };
    const auto findPrevious = [this] { m_browser->findAround(m_find->text(), true); };
    connect(m_find, &QLineEdit::returnPressed, this, findNext);
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, findNext);
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this, findPrevious);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_find->setFocus();
        m_find->selectAll();
    });
}

void HelpViewer::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        for (QLineEdit *box : findChildren<QLineEdit *>()) {
            showPlaceholder(*box, palette());
        }
    }
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

QLineEdit *HelpViewer::textBox(const QString &name, const QString &labelKey)
{
    auto *box = new QLineEdit;
    box->setObjectName(name);
    box->setPlaceholderText(m_library->label(labelKey));
    box->setAccessibleName(m_library->label(labelKey));
    box->setClearButtonEnabled(true);
    showPlaceholder(*box, palette());
    for (QAction *action : box->findChildren<QAction *>()) {
        action->setText(box->accessibleName()); // what it clears
    }
    return box;
}

void HelpViewer::buildPanes()
{
    m_tabs->setObjectName(u"helpTabs"_s);
    m_tabs->addTab(contentsPane(), m_library->label(u"contents"_s));
    m_tabs->addTab(indexPane(), m_library->label(u"index"_s));
    m_tabs->addTab(searchPane(), m_library->label(u"search"_s));
    auto *splitter = new QSplitter;
    splitter->addWidget(m_tabs);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({300, 700});
    splitter->setChildrenCollapsible(false);
    setCentralWidget(splitter);
    const QList<QFrame *> panes{
        m_browser, m_library->engine().contentWidget(), m_library->engine().indexWidget(), m_hits};
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
    QLineEdit *filter = textBox(u"helpIndexFilter"_s, u"indexFilter"_s);
    connect(filter, &QLineEdit::textChanged, index, [index](const QString &text) { index->filterIndices(text); });
    connect(filter, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    return boxAbove(filter, index);
}

QWidget *HelpViewer::searchPane()
{
    m_searchText = textBox(u"helpSearchText"_s, u"searchWords"_s);
    m_hits = new QListWidget;
    m_hits->setObjectName(u"helpSearchHits"_s);
    m_hits->setAccessibleName(m_library->label(u"search"_s));
    const auto openHit = [this](QListWidgetItem *hit) { showPage(hit->data(Qt::UserRole).toUrl()); };
    connect(m_searchText, &QLineEdit::textChanged, this, &HelpViewer::search);
    connect(m_hits, &QListWidget::itemClicked, this, openHit);
    connect(m_hits, &QListWidget::itemActivated, this, openHit);
    return boxAbove(m_searchText, m_hits);
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

// While the browser announces a page, its own source() still is the page before.
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

void HelpViewer::search()
{
    m_hits->clear();
    for (const HelpHit &hit : m_search.find(m_searchText->text())) {
        auto *item = new QListWidgetItem(hit.title, m_hits);
        item->setData(Qt::UserRole, hit.page);
    }
}

void HelpViewer::printPage()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) {
        m_browser->print(&printer);
    }
}
