#include "editor/GridFont.h"

#include "app/Common.h"
#include "app/Settings.h"
#include "platform/BusyPointer.h"
#include "platform/HelpWindow.h"
#include "platform/RedrawOff.h"
#include "platform/SpreadGrid.h"

#include <QFontDialog>
#include <QFontInfo>

using namespace Qt::StringLiterals;

void chooseGridFont(SpreadGrid &grid)
{
    grid.commitEdit();
    QFontDialog dialog(grid.gridFont(), grid.window());
    dialog.setObjectName(u"dlgFont"_s);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const QFont font = dialog.selectedFont();
    UserFont = {.FontName = font.family(),
        .FontSize = float(QFontInfo(font).pointSizeF()),
        .FontItalic = font.italic(),
        .FontBold = font.bold()};
    SaveUserFont(UserFont.FontName, UserFont.FontSize, UserFont.FontItalic, UserFont.FontBold);
    applyGridFont(grid, font);
    HelpWindow::setFont(userFont());
}

void applyGridFont(SpreadGrid &grid, const QFont &font)
{
    const BusyPointer busy;
    const RedrawOff redrawOff(grid);
    grid.setGridFont(font);
    grid.fitRowHeight(0);
}
