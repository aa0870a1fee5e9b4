#pragma once

#include "help/FoldedText.h"

#include <QList>
#include <QString>
#include <QUrl>

class HelpLibrary;

/// A sentence that holds words which were searched for, and the place of the first of them in its page's text.
struct HelpSentence
{
    QString text;
    TextSpan span;
};

/// A page that holds every word that was searched.
struct HelpHit
{
    QString title;
    QUrl page;
    int count; ///< how often the words occur
    QList<HelpSentence> sentences; ///< those that hold all the words; if there are none, those that hold one
};

/// Searches all pages of a help file for parts of words, without regard to case or to half and full width: Japanese
/// has no blanks between words, and captions are written in half-width katakana.
class HelpSearch
{
public:
    explicit HelpSearch(const HelpLibrary &library) : m_library(library) { }

    /// The pages that hold every word of text (words stand between blanks), the richest first.
    QList<HelpHit> find(const QString &text);

private:
    struct Page
    {
        QString title;
        QUrl address;
        QString text;
        FoldedText folded;
        QList<TextSpan> sentences;
    };

    void readPages();
    static HelpHit hitOf(const Page &page, const QStringList &words);

    const HelpLibrary &m_library;
    QList<Page> m_pages;
};
