#pragma once

#include <QList>
#include <QString>
#include <QUrl>

class HelpLibrary;

/// A page that holds every word that was searched.
struct HelpHit
{
    QString title;
    QUrl page;
    int count; ///< how often the words occur
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
    };

    void readPages();

    const HelpLibrary &m_library;
    QList<Page> m_pages;
};
