#include "help/HelpWindow.h"

#include "help/HelpViewer.h"

#include <QFileInfo>
#include <QPointer>

#include <optional>

namespace {

QPointer<HelpViewer> viewer;
std::optional<QFont> viewerFont;

} // namespace

namespace HelpWindow {

bool showTopic(const QString &helpFile, int contextId, QWidget *owner)
{
    const QFileInfo file(helpFile);
    if (!file.isReadable()) {
        return false;
    }
    if (!viewer || viewer->helpFile() != file.absoluteFilePath()) {
        std::unique_ptr<HelpLibrary> library = HelpLibrary::open(helpFile);
        if (!library) {
            return false;
        }
        delete viewer;
        viewer = new HelpViewer(std::move(library));
        if (viewerFont) {
            viewer->useFont(*viewerFont);
        }
    }
    viewer->attachTo(owner);
    viewer->showTopic(contextId);
    return true;
}

void setFont(const QFont &font)
{
    viewerFont = font;
    if (viewer) {
        viewer->useFont(font);
    }
}

} // namespace HelpWindow
