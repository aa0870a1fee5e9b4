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

    /// Selects the next (or previous) occurrence of text after (before) the selection, going round at the page's end.
    /// Returns false, and leaves the view, when the page has none.
    bool findAround(const QString &text, bool backward);
    /// The same from the start of the selection: for a text that is still being typed.
    bool findWhileTyping(const QString &text);

    /// Marks every place on this page, and on those shown after it, that holds one of the words (folded).
    void markWords(const QStringList &words);
    /// Selects a place of the page's text and brings it to the middle of the view.
    void showSpan(TextSpan span);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void markPage();
    QImage picture(const QByteArray &drawing) const;
    QImage fitting(const QImage &picture) const;

    const HelpLibrary &m_library;
    QUrl m_page;
    QHash<QUrl, QImage> m_pictures; ///< of the page's windows, in their own size
    QStringList m_words;
};
