#include "app/ChangeMarks.h"

#include "desktop/Picture.h"
#include "editor/OpenDocument.h"

#include <QIcon>
#include <QWidget>

namespace {

QIcon unchangedIcon()
{
    static const QIcon icon = Picture::programIcon();
    return icon;
}

QIcon changedIcon()
{
    static const QIcon icon = Picture::changedIcon(); // not drawn before the first change
    return icon;
}

} // namespace

void showChangesByIcon(QWidget &window, const OpenDocument &document)
{
    const auto show = [&window](bool changed) { window.setWindowIcon(changed ? changedIcon() : unchangedIcon()); };
    show(document.isChanged());
    QObject::connect(&document, &OpenDocument::changedFlagChanged, &window, show);
}
