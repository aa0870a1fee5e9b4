#include "editor/GridFont.h"

#include "app/services/Common.h"
#include "app/services/Settings.h"
#include "desktop/BusyCursor.h"
#include "desktop/Contrast.h"
#include "grid/RedrawOff.h"
#include "grid/SpreadGrid.h"
#include "help/HelpWindow.h"

#include <QFontDialog>
#include <QFontInfo>

using namespace Qt::StringLiterals;

namespace {

/// The font by the names of the family and the style that it is shown in. The name that is stored may be one that the
/// system replaces, and the dialog has no style to choose for that; where a family's upright style is not called
/// "Normal", the dialog would choose the first of its list, which may be an oblique one.
QFont asShown(QFont font)
{
    const QFontInfo shown(font);
    font.setFamilies({shown.family()});
    font.setStyleName(shown.styleName());
    return font;
}

} // namespace

void chooseGridFont(SpreadGrid &grid)
{
    grid.commitEdit();
    QFontDialog dialog(asShown(grid.gridFont()), grid.window());
    dialog.setObjectName(u"dlgFont"_s);
    showBoxesOf(dialog);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const QFont font = dialog.selectedFont();
    UserFont = {.FontName = font.family(),
        .FontSize = float(font.pointSizeF()), // as it was chosen; it is shown in whole pixels
        .FontItalic = font.italic(),
        .FontBold = font.bold()};
    SaveUserFont(UserFont.FontName, UserFont.FontSize, UserFont.FontItalic, UserFont.FontBold);
    applyGridFont(grid, font);
    HelpWindow::setFont(userFont());
}

void applyGridFont(SpreadGrid &grid, const QFont &font)
{
    const BusyCursor busy;
    const RedrawOff redrawOff(grid);
    grid.setGridFont(font);
    grid.fitRowHeight(0);
}
