#include "help/HelpBrowser.h"

#include "help/HelpLibrary.h"

#include <QPainter>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTextCursor>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Like a marker pen, on light and dark desktops alike.
const QColor markBackground(0xff, 0xe0, 0x66);
const QColor markText(0x1a, 0x1a, 0x1a);

constexpr int besidePicture = 48; ///< the page's margins, and a little more

QTextCursor cursorAt(QTextDocument &page, TextSpan span)
{
    QTextCursor cursor(&page);
    cursor.setPosition(span.start);
    cursor.setPosition(span.start + span.length, QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

HelpBrowser::HelpBrowser(const HelpLibrary &library, QWidget *parent) : QTextBrowser(parent), m_library(library)
{
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::markPage);
}

// Qt's browser knows files and resources only; the pages are in the help file. Addresses are relative to the page, but
// while a page is being loaded source() still returns the previous one.
QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    if (type == QTextDocument::HtmlResource) {
        m_page = name;
        m_pictures.clear();
    }
    const QByteArray content = m_library.data(m_page.resolved(name));
    if (name.path().endsWith(u".png"_s)) {
        m_pictures[name] = QImage::fromData(content);
        return fitting(m_pictures.value(name));
    }
    return name.path().endsWith(u".svg"_s) ? QVariant(picture(content)) : QVariant(content);
}

// Drawn for the screen that shows it, so that pictures are as crisp as in the tool bar.
QImage HelpBrowser::picture(const QByteArray &drawing) const
{
    QSvgRenderer renderer(drawing);
    QImage image(renderer.defaultSize() * devicePixelRatio(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio());
    return image;
}

// Scaled down if the page is narrower, so that it need not be scrolled sideways for its pictures.
QImage HelpBrowser::fitting(const QImage &picture) const
{
    const int available = std::max(1, viewport()->width() - besidePicture);
    return picture.width() <= available ? picture : picture.scaledToWidth(available, Qt::SmoothTransformation);
}

void HelpBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    for (const auto [name, picture] : std::as_const(m_pictures).asKeyValueRange()) {
        document()->addResource(QTextDocument::ImageResource, name, fitting(picture));
        document()->markContentsDirty(0, document()->characterCount());
    }
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

void HelpBrowser::markWords(const QStringList &words)
{
    m_words = words;
    markPage();
}

void HelpBrowser::markPage()
{
    QTextCharFormat look;
    look.setBackground(markBackground);
    look.setForeground(markText);
    const FoldedText text(m_words.isEmpty() ? QString() : toPlainText());
    QList<ExtraSelection> marks;
    for (const QString &word : std::as_const(m_words)) {
        for (const TextSpan &span : text.spansOf(word)) {
            marks.append({cursorAt(*document(), span), look});
        }
    }
    setExtraSelections(marks);
}

void HelpBrowser::showSpan(TextSpan span)
{
    setTextCursor(cursorAt(*document(), span));
    QScrollBar &bar = *verticalScrollBar();
    bar.setValue(bar.value() + cursorRect().center().y() - viewport()->height() / 2);
}
