#pragma once

#include "help/FoldedText.h"
#include "help/HelpLibrary.h"

#include <QMainWindow>

#include <memory>

class HelpBrowser;
class HelpSearchPane;
class QLineEdit;
class QSplitter;
class QTabWidget;
class QToolBar;

/// The help window: pages beside contents, index and search, with back, forward, find and print above them.
class HelpViewer : public QMainWindow
{
    Q_OBJECT

public:
    explicit HelpViewer(std::unique_ptr<HelpLibrary> library);
    ~HelpViewer() override;

    QString helpFile() const { return m_library->helpFile(); }

    /// Shows the page of a context number and raises the window.
    void showTopic(int contextId);
    /// Shows labels, lists and pages in that font. The pages lose a size that the user chose by the wheel.
    void useFont(const QFont &font);
    /// Keeps the window usable while the owner's window is a modal dialog.
    void attachTo(QWidget *owner);

private:
    void buildToolBar();
    void addPageActions(QToolBar &bar);
    void addFindBox(QToolBar &bar);
    void buildPanes();
    QWidget *contentsPane();
    QWidget *indexPane();

    QAction *addAction(QToolBar &bar, const QString &name, const QKeySequence &key);
    QWidget *boxAbove(QLineEdit *box, QWidget *list);

    void widenForTitles();
    void showPage(const QUrl &address);
    void followPage(const QUrl &address);
    void markInContents(const QUrl &address);
    void showHit(const QUrl &page, TextSpan span);
    void leave();
    void showFindBox(bool shown);
    void printPage();

    std::unique_ptr<HelpLibrary> m_library;
    HelpBrowser *m_browser;
    HelpSearchPane *m_searchPane;
    QTabWidget *m_tabs;
    QSplitter *m_splitter;
    QLineEdit *m_find = nullptr;
    QAction *m_findAction = nullptr; ///< shows and hides m_find in the tool bar
};
