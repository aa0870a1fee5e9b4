#include "tests/longday/DayState.h"

#include "app/MDIfrmTabrix.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Controls.h"

#include <QAction>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 13;
constexpr QRgb changedColour = qRgb(128, 0, 0);

QJsonArray recentEntries(const QMenu &menu)
{
    QJsonArray captions;
    for (const QAction *action : menu.actions()) {
        if (action->objectName().startsWith("mnuRecentFile("_L1) && !action->isSeparator() && action->isVisible()) {
            captions << action->text().replace("&&"_L1, "&"_L1);
        }
    }
    return captions;
}

QJsonArray rowTexts(const SpreadGrid &grid, int row)
{
    QJsonArray texts;
    for (int column = 1; column <= columns; ++column) {
        texts << grid.text(column, row);
    }
    return texts;
}

QString rowColours(const SpreadGrid &grid, int row)
{
    QString colours;
    for (int column = 1; column <= columns; ++column) {
        const QColor colour = grid.textColour(column, row);
        colours += colour.isValid() && colour.rgb() == changedColour ? u'1' : u'0';
    }
    return colours;
}

QJsonObject windowState(const frmPrFile &editor)
{
    const SpreadGrid &grid = editor.vaspdParam();
    QJsonArray rows;
    QJsonArray colours;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        rows << rowTexts(grid, row);
        colours << rowColours(grid, row);
    }
    const GridBlock selection = grid.selectedBlock();
    return {{u"number"_s, editor.document().number()}, {u"caption"_s, editor.windowTitle()}, {u"rows"_s, rows},
        {u"colours"_s, colours}, {u"changed"_s, bool(DocFlags[editor.document().number()].changed)},
        {u"recent"_s, recentEntries(*editor.menus().constFirst())},
        {u"selection"_s, QJsonArray{selection.column1, selection.row1, selection.column2, selection.row2}},
        {u"cell"_s, QJsonArray{grid.activeColumn(), grid.activeRow()}},
        {u"paste"_s, control<QAction>(*editor.menus().at(1), u"mneEditPaste"_s).isEnabled()},
        {u"addPaste"_s, control<QAction>(*editor.menus().at(1), u"mneEditAddPaste"_s).isEnabled()}};
}

/// The frame's own menu, which is not in the bar while a window is open.
const QMenu &frameFileMenu(const MDIfrmTabrix &frame)
{
    for (const QMenu *menu : frame.findChildren<QMenu *>(u"mneFile"_s)) {
        for (const QObject *owner = menu->parent(); owner; owner = owner->parent()) {
            if (qobject_cast<const frmPrFile *>(owner)) {
                break;
            }
            if (owner == &frame) {
                return *menu;
            }
        }
    }
    throw std::runtime_error("the frame has no File menu");
}

} // namespace

QJsonObject dayState(const MDIfrmTabrix &frame)
{
    QJsonArray windows;
    for (const frmPrFile *editor : frame.openEditors()) {
        windows << windowState(*editor);
    }
    const frmPrFile *active = frame.activeEditor();
    return {{u"minimised"_s, frame.isMinimized()}, {u"active"_s, active ? active->document().number() : 0},
        {u"count"_s, control<QLabel>(frame, u"lblPrcount"_s).text()},
        {u"pr"_s, control<QLineEdit>(frame, u"txtPr"_s).text()},
        {u"paste"_s, control<RibbonButton>(frame, u"ssrbnEdit(2)"_s).isEnabled()},
        {u"addPaste"_s, control<RibbonButton>(frame, u"ssrbnEdit(3)"_s).isEnabled()},
        {u"recent"_s, recentEntries(frameFileMenu(frame))}, {u"windows"_s, windows}};
}
