#pragma once

#include "help/FoldedText.h"

#include <QList>
#include <QString>
#include <QUrl>

class HelpLibrary;

/// A sentence with some of the words searched for, and where the first of them is in the page's text.
struct HelpSentence
{
    QString text;
    TextSpan span;
};

/// A page that has all words searched for.
struct HelpHit
{
    QString title;
    QUrl page;
    int count; ///< how often the words occur
    QList<HelpSentence> sentences; ///< those with all the words; if there are none, those with any of them
};

/// Searches all pages of a help file for parts of words, without regard to case and to half or full width: Japanese has
/// no spaces between words, and captions are written in half-width katakana.
class HelpSearch
{
public:
    explicit HelpSearch(const HelpLibrary &library) : m_library(library) { }

    /// The pages that have all words of text (separated by spaces), those with the most hits first.
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
