#pragma once

#include "help/HelpSearch.h"

#include <QWidget>

class HelpTextBox;
class QListWidget;
class QListWidgetItem;

/// Searches the guide while words are typed: lists the pages that have them, each with its sentences that do.
class HelpSearchPane : public QWidget
{
    Q_OBJECT

public:
    explicit HelpSearchPane(const HelpLibrary &library);

    QListWidget &hits() { return *m_hits; }

signals:
    /// The words to search for have changed; none if the box is empty.
    void wordsChanged(const QStringList &words);
    /// The user chose a page or a sentence; span is its first word.
    void spanChosen(const QUrl &page, TextSpan span);

protected:
    void changeEvent(QEvent *event) override;

private:
    void search();
    void listHit(const HelpHit &hit);
    QListWidgetItem *addLine(const QString &text, const QUrl &page, TextSpan span);
    void open(const QListWidgetItem *line);
    void showTitlesBold();

    HelpSearch m_search;
    HelpTextBox *m_words;
    QListWidget *m_hits;
    QString m_nothingFound;
};
