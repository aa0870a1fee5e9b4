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
        .caption = Text::MenuOpen,
        .name = u"mneFileOpen",
        .key = Qt::CTRL | Qt::Key_O,
        .button = ToolButtonInfo{u"ssrbnOpen", 0, 1000, 0, Text::TipOpen},
        .ofFrame = [](EditorFrame &frame) { frame.open(); }},
    {.menu = File,
        .caption = Text::MenuClose,
        .name = u"mneFileClose",
        .ofEditor = [](frmPrFile &editor) { editor.closeWindow(); }},
    {.menu = File, .line = Separator},
    {.menu = File,
        .caption = Text::MenuSave,
        .name = u"mneFileSave",
        .key = Qt::CTRL | Qt::Key_S,
        .ofEditor = [](frmPrFile &editor) { editor.frame().save(editor); }},
    {.menu = File,
        .caption = Text::MenuSaveAs,
        .name = u"mneFileSaveAs",
        .key = Qt::CTRL | Qt::SHIFT | Qt::Key_S,
        .ofEditor = [](frmPrFile &editor) { editor.frame().saveAs(editor); }},
    {.menu = File, .line = Separator},
    {.menu = File,
        .caption = Text::MenuPrint,
        .name = u"mneFilePrint",
        .key = Qt::CTRL | Qt::Key_P,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnPrint", 2, 1003, Text::TipPrint),
        .ofEditor = [](frmPrFile &editor) { editor.print(); }},
    {.menu = File, .line = RecentFiles, .isInFrame = true},
    {.menu = File, .line = Separator, .isInFrame = true},
    {.menu = File,
        .caption = Text::MenuExit,
        .name = u"mneFileExit",
        .key = Qt::CTRL | Qt::Key_Q,
        .ofFrame = [](EditorFrame &frame) { frame.quit(); }},

    {.menu = Edit,
        .caption = Text::MenuCut,
        .name = u"mneEditCut",
        .key = Qt::CTRL | Qt::Key_X,
        .keyOwner = Focus,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(0)", 3, 1010, Text::TipCut, true),
        .ofEditor = [](frmPrFile &editor) { editor.commands().cut(); }},
    {.menu = Edit,
        .caption = Text::MenuCopy,
        .name = u"mneEditCopy",
        .key = Qt::CTRL | Qt::Key_C,
        .keyOwner = Focus,
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(1)", 4, 1012, Text::TipCopy),
        .ofEditor = [](frmPrFile &editor) { editor.commands().copy(); }},
    {.menu = Edit,
        .caption = Text::MenuPaste,
        .name = u"mneEditPaste",
        .key = Qt::CTRL | Qt::Key_V,
        .keyOwner = Focus,
        .needs = CommandNeeds::CopiedText,
        .button = button(u"ssrbnEdit(2)", 5, 1014, Text::TipPaste),
        .ofEditor = [](frmPrFile &editor) { editor.commands().paste(); }},
    {.menu = Edit,
        .caption = Text::MenuAddPaste,
        .name = u"mneEditAddPaste",
        .needs = CommandNeeds::CopiedRows,
        .button = button(u"ssrbnEdit(3)", 6, 1016, Text::TipAddPaste),
        .ofEditor = [](frmPrFile &editor) { editor.commands().addPaste(); }},
    {.menu = Edit, .line = Separator},
    {.menu = Edit,
        .caption = Text::MenuAddLine,
        .name = u"mneEditAdd",
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(4)", 7, 1018, Text::TipAddLine, true),
        .ofEditor = [](frmPrFile &editor) { editor.commands().addLines(); }},
    {.menu = Edit,
        .caption = Text::MenuDeleteLines,
        .name = u"mneEditDel",
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(5)", 8, 1020, Text::TipDeleteLines),
        .ofEditor = [](frmPrFile &editor) { editor.commands().deleteLines(); }},
    {.menu = Edit, .line = Separator},
    {.menu = Edit,
        .caption = Text::MenuMachineInfo,
        .name = u"mneEditInf",
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(7)", 10, 1024, Text::TipMachineInfo),
        .ofEditor = [](frmPrFile &editor) { editor.editMachineInfo(); }},
    {.menu = Edit,
        .caption = Text::MenuFuncCode,
        .name = u"mneEditFunc",
        .needs = CommandNeeds::Document,
        .button = button(u"ssrbnEdit(6)", 9, 1022, Text::TipFuncCode, true),
        .ofEditor = [](frmPrFile &editor) { editor.editFuncCode(); }},
    {.menu = Edit,
        .caption = Text::MenuPrCond,
        .name = u"mneEditCond",
        .ofEditor = [](frmPrFile &editor) { editor.editPrCond(); }},

    {.menu = Visible,
        .caption = Text::MenuToolBar,
        .name = u"mneVisualItem(0)",
        .bar = Bar::Tool,
        .ofFrame = [](EditorFrame &frame) { toggle(frame, Bar::Tool); }},
    {.menu = Visible,
        .caption = Text::MenuStatusBar,
        .name = u"mneVisualItem(1)",
        .bar = Bar::Status,
        .ofFrame = [](EditorFrame &frame) { toggle(frame, Bar::Status); }},
    {.menu = Visible, .line = Separator, .name = u"mneVisualItem(2)"},
    {.menu = Visible,
        .caption = Text::MenuFont,
        .name = u"mneVisualItem(3)",
        .ofEditor = [](frmPrFile &editor) { editor.chooseFont(); }},
    {.menu = Visible,
        .caption = Text::MenuColumns,
        .name = u"mneVisualInf",
        .ofEditor = [](frmPrFile &editor) { editor.chooseColumns(); }},

    {.menu = Window,
        .caption = Text::MenuCascade,
        .name = u"mneWinItem(0)",
        .ofFrame = [](EditorFrame &frame) { frame.arrange(Arrangement::Cascaded); }},
    {.menu = Window,
        .caption = Text::MenuTile,
        .name = u"mneWinItem(1)",
        .ofFrame = [](EditorFrame &frame) { frame.arrange(Arrangement::Tiled); }},

    {.menu = Help,
        .caption = Text::MenuContents,
        .name = u"mneHelpItem",
        .key = Qt::Key_F1,
        .ofFrame = [](EditorFrame &frame) { frame.showHelp(); }},
    {.menu = Help,
        .caption = Text::MenuAbout,
        .name = u"mneHelpVer",
        .ofFrame = [](EditorFrame &frame) { frame.showAbout(); }},

    {.needs = CommandNeeds::Document,
        .button = button(u"ssrbnSave", 1, 1001, Text::TipSave),
        .ofEditor = [](frmPrFile &editor) { editor.frame().saveUnderTitle(editor); }},
    {.key = Qt::CTRL | Qt::Key_F, .ofEditor = [](frmPrFile &editor) { editor.finder().open(); }},
    {.key = Qt::Key_F3, .ofEditor = [](frmPrFile &editor) { editor.finder().findNext(); }},
    {.key = Qt::SHIFT | Qt::Key_F3, .ofEditor = [](frmPrFile &editor) { editor.finder().findPrevious(); }},
    {.key = Qt::Key_F7, .ofEditor = [](frmPrFile &editor) { editor.goToChanged(1); }},
    {.key = Qt::SHIFT | Qt::Key_F7, .ofEditor = [](frmPrFile &editor) { editor.goToChanged(-1); }},
    {.key = Qt::Key_F8, .ofEditor = [](frmPrFile &editor) { editor.goToFinding(1); }},
    {.key = Qt::SHIFT | Qt::Key_F8, .ofEditor = [](frmPrFile &editor) { editor.goToFinding(-1); }},
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
