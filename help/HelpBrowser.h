#pragma once

#include "help/FoldedText.h"

#include <QHash>
#include <QImage>
#include <QTextBrowser>

class HelpLibrary;

/// Shows the pages of a help file and follows their links.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(const HelpLibrary &library, QWidget *parent = nullptr);

    QVariant loadResource(int type, const QUrl &name) override;

    /// Selects the next (or previous) occurrence of text after (before) the selection, wrapping around at the page's
    /// end. Returns false and changes nothing if the page has none.
    bool findAround(const QString &text, bool backward);
    /// The same from the start of the selection, for a text that is still being typed.
    bool findWhileTyping(const QString &text);

    /// Highlights the words (folded) on this page and on all pages shown after it.
    void markWords(const QStringList &words);
    /// Selects a part of the page's text and scrolls it to the middle of the view.
    void showSpan(TextSpan span);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void markPage();
    QImage picture(const QByteArray &drawing) const;
    QImage fitting(const QImage &picture) const;

    const HelpLibrary &m_library;
    QUrl m_page;
    QHash<QUrl, QImage> m_pictures; ///< the page's pictures of windows, unscaled
    QStringList m_words;
};
