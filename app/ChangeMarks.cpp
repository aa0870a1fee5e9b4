#include "app/ChangeMarks.h"

#include "desktop/Picture.h"
#include "editor/OpenDocument.h"

#include <QWidget>

void showChangesByIcon(QWidget &window, const OpenDocument &document)
{
    const auto show = [&window](bool changed) {
        static const QIcon unchangedIcon = Picture::programIcon();
        static const QIcon changedIcon = Picture::changedIcon();
        window.setWindowIcon(changed ? changedIcon : unchangedIcon);
    };
    show(document.isChanged());
    QObject::connect(&document, &OpenDocument::changedFlagChanged, &window, show);
}
