#include "editor/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

/// The text that the record describes. Who offers it does not matter: some desktops run a program that takes over the
/// clipboard from the program that copied the text.
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
    // Before the clipboard changes: whoever is notified of that reads it at once.
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
