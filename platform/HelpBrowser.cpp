#include "platform/HelpBrowser.h"

#include "platform/HelpLibrary.h"

#include <QTextCursor>

HelpBrowser::HelpBrowser(const HelpLibrary &library, QWidget *parent) : QTextBrowser(parent), m_library(library)
{
}

// Qt's browser knows files and resources only; the pages are in the help file. What a page asks for is beside it, but
// source() still names the page before while a page is being loaded.
QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    if (type == QTextDocument::HtmlResource) {
        m_page = name;
    }
    return m_library.data(m_page.resolved(name));
}

bool HelpBrowser::findAround(const QString &text, bool backward)
{
    const QTextDocument::FindFlags flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (text.isEmpty() || find(text, flags)) {
        return !text.isEmpty();
    }
    const QTextCursor before = textCursor();
    moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags)) {
        return true;
    }
    setTextCursor(before);
    return false;
}

bool HelpBrowser::findWhileTyping(const QString &text)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    setTextCursor(cursor);
    return findAround(text, false);
}
