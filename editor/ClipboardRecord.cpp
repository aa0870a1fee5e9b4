#include "editor/ClipboardRecord.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

/// The text that the record tells of. Its owner does not matter: desktops have programs that go on offering a text in
/// the place of the one that copied it.
QString &recordedText()
{
    static QString text;
    return text;
}

} // namespace

ClipboardRecord &clipboardRecord()
{
    static ClipboardRecord record;
    return record;
}

void fillClipboard(const QString &text, const ClipboardRecord &shape)
{
    // First, because whoever hears of the change reads the clipboard at once.
    recordedText() = text;
    clipboardRecord() = shape;
    QGuiApplication::clipboard()->setText(text);
}

QString readClipboard()
{
    QString text = QGuiApplication::clipboard()->text();
    if (text != recordedText()) {
        recordedText().clear();
        clipboardRecord() = {};
    }
    return text;
}
