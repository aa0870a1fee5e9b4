#include "editor/Commands.h"
#include "editor/GridCommands.h"
#include "editor/GridFinder.h"
#include "editor/frmPrFile.h"

namespace {

using enum MenuName;
using enum CommandInfo::Line;
using enum CommandInfo::KeyOwner;

constexpr MenuInfo menus[menuCount] = {
    {u"mneFile", Text::MenuFile},
    {u"mneEdit", Text::MenuEdit},
    {u"mneVisual", Text::MenuVisible},
    {u"mneWin", Text::MenuWindow},
    {u"mneHelp", Text::MenuHelp},
};

/// The button's two pictures follow one another.
constexpr ToolButtonInfo button(QStringView name, int position, int picture, Text tip, bool startsGroup = false)
{
    return {name, position, picture, picture + 1, tip, startsGroup};
}

void toggle(EditorFrame &frame, Bar bar)
{
    frame.showBar(bar, !frame.isBarShown(bar));
}

// The closing key is every child window's own. Cutting, copying and pasting are the grid's keys and those of every text
// box: the menu only shows them. The Save button is a command of its own: unlike the menu's Save it asks for no name.
constexpr CommandInfo table[] = {
    {.menu = File,
        .name = u"mneFileOpen",
        .caption = Text::MenuOpen,
        .key = Qt::CTRL | Qt::Key_O,
        .button = ToolButtonInfo{u"ssrbnOpen", 0, 1000, 0, Text::TipOpen},
        .ofFrame = [](EditorFrame &frame) { frame.open(); }},
    {.menu = File,
        .name = u"mneFileClose",
        .caption = Text::MenuClose,
        .ofEditor = [](frmPrFile &editor) { editor.closeWindow(); }},
    {.menu = File, .line = Separator},
    {.menu = File,
        .name = u"mneFileSave",
        .caption = Text::MenuSave,
        .key = Qt::CTRL | Qt::Key_S,
        .ofEditor = [](frmPrFile &editor) { editor.frame().save(editor); }},
    {.menu = File,
        .name = u"mneFileSaveAs",
        .caption = Text::MenuSaveAs,
        .key = Qt::CTRL | Qt::SHIFT | Qt::Key_S,
        .ofEditor = [](frmPrFile &editor) { editor.frame().saveAs(editor); }},
    {.menu = File, .line = Separator},
    {.menu = File,
        .name = u"mneFilePrint",
        .caption = Text::MenuPrint,
        .key = Qt::CTRL | Qt::Key_P,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnPrint", 2, 1003, Text::TipPrint),
        .ofEditor = [](frmPrFile &editor) { editor.print(); }},
    {.menu = File, .line = RecentFiles, .isInFrame = true},
    {.menu = File, .line = Separator, .isInFrame = true},
    {.menu = File,
        .name = u"mneFileExit",
        .caption = Text::MenuExit,
        .key = Qt::CTRL | Qt::Key_Q,
        .ofFrame = [](EditorFrame &frame) { frame.quit(); }},

    {.menu = Edit,
        .name = u"mneEditCut",
        .caption = Text::MenuCut,
        .key = Qt::CTRL | Qt::Key_X,
        .keyOwner = Focus,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(0)", 3, 1010, Text::TipCut, true),
        .ofEditor = [](frmPrFile &editor) { editor.commands().cut(); }},
    {.menu = Edit,
        .name = u"mneEditCopy",
        .caption = Text::MenuCopy,
        .key = Qt::CTRL | Qt::Key_C,
        .keyOwner = Focus,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(1)", 4, 1012, Text::TipCopy),
        .ofEditor = [](frmPrFile &editor) { editor.commands().copy(); }},
    {.menu = Edit,
        .name = u"mneEditPaste",
        .caption = Text::MenuPaste,
        .key = Qt::CTRL | Qt::Key_V,
        .keyOwner = Focus,
        .needs = CommandNeeds::CopiedText,
        .button = button(u"ssrbnEdit(2)", 5, 1014, Text::TipPaste),
        .ofEditor = [](frmPrFile &editor) { editor.commands().paste(); }},
    {.menu = Edit,
        .name = u"mneEditAddPaste",
        .caption = Text::MenuAddPaste,
        .needs = CommandNeeds::CopiedRows,
        .button = button(u"ssrbnEdit(3)", 6, 1016, Text::TipAddPaste),
        .ofEditor = [](frmPrFile &editor) { editor.commands().addPaste(); }},
    {.menu = Edit, .line = Separator},
    {.menu = Edit,
        .name = u"mneEditAdd",
        .caption = Text::MenuAddLine,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(4)", 7, 1018, Text::TipAddLine, true),
        .ofEditor = [](frmPrFile &editor) { editor.commands().addLines(); }},
    {.menu = Edit,
        .name = u"mneEditDel",
        .caption = Text::MenuDeleteLines,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(5)", 8, 1020, Text::TipDeleteLines),
        .ofEditor = [](frmPrFile &editor) { editor.commands().deleteLines(); }},
    {.menu = Edit, .line = Separator},
    {.menu = Edit,
        .name = u"mneEditInf",
        .caption = Text::MenuMachineInfo,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(7)", 10, 1024, Text::TipMachineInfo),
        .ofEditor = [](frmPrFile &editor) { editor.editMachineInfo(); }},
    {.menu = Edit,
        .name = u"mneEditFunc",
        .caption = Text::MenuFuncCode,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(6)", 9, 1022, Text::TipFuncCode, true),
        .ofEditor = [](frmPrFile &editor) { editor.editFuncCode(); }},
    {.menu = Edit,
        .name = u"mneEditCond",
        .caption = Text::MenuPrCond,
        .ofEditor = [](frmPrFile &editor) { editor.editPrCond(); }},

    {.menu = Visible,
        .name = u"mneVisualItem(0)",
        .caption = Text::MenuToolBar,
        .bar = Bar::Tool,
        .ofFrame = [](EditorFrame &frame) { toggle(frame, Bar::Tool); }},
    {.menu = Visible,
        .name = u"mneVisualItem(1)",
        .caption = Text::MenuStatusBar,
        .bar = Bar::Status,
        .ofFrame = [](EditorFrame &frame) { toggle(frame, Bar::Status); }},
    {.menu = Visible, .line = Separator, .name = u"mneVisualItem(2)"},
    {.menu = Visible,
        .name = u"mneVisualItem(3)",
        .caption = Text::MenuFont,
        .ofEditor = [](frmPrFile &editor) { editor.chooseFont(); }},
    {.menu = Visible,
        .name = u"mneVisualInf",
        .caption = Text::MenuColumns,
        .ofEditor = [](frmPrFile &editor) { editor.chooseColumns(); }},

    {.menu = Window,
        .name = u"mneWinItem(0)",
        .caption = Text::MenuCascade,
        .ofFrame = [](EditorFrame &frame) { frame.arrange(Arrangement::Cascaded); }},
    {.menu = Window,
        .name = u"mneWinItem(1)",
        .caption = Text::MenuTile,
        .ofFrame = [](EditorFrame &frame) { frame.arrange(Arrangement::Tiled); }},

    {.menu = Help,
        .name = u"mneHelpItem",
        .caption = Text::MenuContents,
        .key = Qt::Key_F1,
        .ofFrame = [](EditorFrame &frame) { frame.showHelp(); }},
    {.menu = Help,
        .name = u"mneHelpVer",
        .caption = Text::MenuAbout,
        .ofFrame = [](EditorFrame &frame) { frame.showAbout(); }},

    {.needs = CommandNeeds::Document,
        .button = button(u"ssrbnSave", 1, 1001, Text::TipSave),
        .ofEditor = [](frmPrFile &editor) { editor.frame().saveUnderTitle(editor); }},
    {.key = Qt::CTRL | Qt::Key_F, .ofEditor = [](frmPrFile &editor) { editor.finder().open(); }},
    {.key = Qt::Key_F3, .ofEditor = [](frmPrFile &editor) { editor.finder().findNext(); }},
    {.key = Qt::SHIFT | Qt::Key_F3, .ofEditor = [](frmPrFile &editor) { editor.finder().findPrevious(); }},
    {.key = Qt::Key_F7, .ofEditor = [](frmPrFile &editor) { editor.goToChanged(1); }},
    {.key = Qt::SHIFT | Qt::Key_F7, .ofEditor = [](frmPrFile &editor) { editor.goToChanged(-1); }},
    {.key = Qt::CTRL | Qt::Key_G, .ofFrame = [](EditorFrame &frame) { frame.enterJumpBox(); }},
};

} // namespace

const MenuInfo &menuInfo(MenuName menu)
{
    return menus[static_cast<int>(menu)];
}

std::span<const CommandInfo> commands()
{
    return table;
}
