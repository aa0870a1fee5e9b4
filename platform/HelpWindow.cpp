#include "platform/HelpWindow.h"

#include "platform/HelpViewer.h"

#include <QFileInfo>
#include <QPointer>

namespace HelpWindow {

bool showTopic(const QString &helpFile, int contextId, QWidget *owner)
{
    static QPointer<HelpViewer> viewer;
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
    }
    viewer->attachTo(owner);
    viewer->showTopic(contextId);
    return true;
}

} // namespace HelpWindow
