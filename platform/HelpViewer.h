#pragma once

#include "platform/HelpLibrary.h"
#include "platform/HelpSearch.h"

#include <QMainWindow>

#include <memory>

class HelpBrowser;
class QLineEdit;
class QListWidget;
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

    /// Shows the page of a context number and brings the window before the others.
    void showTopic(int contextId);
    /// Keeps the window usable while owner's window is a modal dialog.
    void attachTo(QWidget *owner);

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildToolBar();
    void addPageActions(QToolBar &bar);
    void addFindBox(QToolBar &bar);
    void buildPanes();
    QWidget *contentsPane();
    QWidget *indexPane();
    QWidget *searchPane();

    QAction *addAction(QToolBar &bar, const QString &name, const QKeySequence &key);
    QLineEdit *textBox(const QString &name, const QString &labelKey);
    QWidget *boxAbove(QLineEdit *box, QWidget *list);

    void showPage(const QUrl &address);
    void followPage(const QUrl &address);
    void markInContents(const QUrl &address);
    void search();
    void printPage();

    std::unique_ptr<HelpLibrary> m_library;
    HelpSearch m_search;
    HelpBrowser *m_browser;
    QTabWidget *m_tabs;
    QLineEdit *m_find = nullptr;
    QLineEdit *m_searchText = nullptr;
    QListWidget *m_hits = nullptr;
};
