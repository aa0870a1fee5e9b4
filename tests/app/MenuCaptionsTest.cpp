#include "editor/frmPrFile.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"

#include <QMenu>
#include <QMenuBar>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A caption of the menu bar in both languages.
struct MenuCaption
{
    QString menu;
    QString command; ///< empty: the menu itself
    QString english;
    QString japanese;
    bool isInFrame; ///< also while there is no editor window
};

class MenuCaptions : public FrameTest, public testing::WithParamInterface<MenuCaption>
{
protected:
    /// The captions of the case's menu or command in the menu bar as it is now; none if it is not there.
    QStringList shown()
    {
        QStringList captions;
        for (const QAction *title : frame().menuBar()->actions()) {
            if (title->menu()->objectName() != GetParam().menu) {
                continue;
            }
            if (GetParam().command.isEmpty()) {
                captions << title->menu()->title();
            } else if (const auto *command = title->menu()->findChild<QAction *>(GetParam().command)) {
                captions << command->text();
            }
        }
        return captions;
    }
};

} // namespace

TEST_P(MenuCaptions, areOfTheLanguageWithAndWithoutAnEditorWindow)
{
    for (const auto &[country, caption] : {std::pair(1, GetParam().english), std::pair(81, GetParam().japanese)}) {
        setCountryCode(country);
        start();
        EXPECT_EQ(shown(), QStringList(caption));
        EXPECT_TRUE(editor().parentWidget()->close());
        EXPECT_EQ(shown(), GetParam().isInFrame ? QStringList(caption) : QStringList());
    }
}

INSTANTIATE_TEST_SUITE_P(Menus, MenuCaptions,
    testing::ValuesIn(std::vector<MenuCaption>{
        {u"mneFile"_s, {}, u"&File"_s, u"ﾌｧｲﾙ(&F)"_s, true},
        {u"mneFile"_s, u"mneFileOpen"_s, u"&Open..."_s, u"開く(&O)..."_s, true},
        {u"mneFile"_s, u"mneFileClose"_s, u"&Close"_s, u"閉じる(&C)"_s, false},
        {u"mneFile"_s, u"mneFileSave"_s, u"&Save"_s, u"上書き保存(&S)"_s, false},
        {u"mneFile"_s, u"mneFileSaveAs"_s, u"Save &As..."_s, u"名前を付けて保存(&A)..."_s, false},
        {u"mneFile"_s, u"mneFilePrint"_s, u"&Print"_s, u"印刷(&P)"_s, false},
        {u"mneFile"_s, u"mneFileExit"_s, u"E&xit"_s, u"終了(&X)"_s, true},
        {u"mneEdit"_s, {}, u"&Edit"_s, u"編集(&E)"_s, false},
        {u"mneEdit"_s, u"mneEditCut"_s, u"Cu&t"_s, u"切り取り(&T)"_s, false},
        {u"mneEdit"_s, u"mneEditCopy"_s, u"&Copy"_s, u"ｺﾋﾟｰ(&C)"_s, false},
        {u"mneEdit"_s, u"mneEditPaste"_s, u"&Paste"_s, u"貼り付け(&P)"_s, false},
        {u"mneEdit"_s, u"mneEditAddPaste"_s, u"Add Pa&ste"_s, u"挿入貼り付け(&S)"_s, false},
        {u"mneEdit"_s, u"mneEditAdd"_s, u"&Add"_s, u"空白行挿入(&A)"_s, false},
        {u"mneEdit"_s, u"mneEditDel"_s, u"&Delete"_s, u"選択行削除(&D)"_s, false},
        {u"mneEdit"_s, u"mneEditInf"_s, u"&Machine inf..."_s, u"機種情報表示(&M)..."_s, false},
        {u"mneEdit"_s, u"mneEditFunc"_s, u"&Functional list code..."_s, u"機能ﾘｽﾄｺｰﾄﾞ編集(&F)..."_s, false},
        {u"mneEdit"_s, u"mneEditCond"_s, u"Pr &Read Condition..."_s, u"ﾊﾟﾗﾒｰﾀ読出し条件編集(&R)..."_s, false},
        {u"mneVisual"_s, {}, u"&Visible"_s, u"表示(&V)"_s, true},
        {u"mneVisual"_s, u"mneVisualItem(0)"_s, u"&Tool bar"_s, u"ﾂｰﾙﾊﾞｰ(&T)"_s, true},
        {u"mneVisual"_s, u"mneVisualItem(1)"_s, u"&Status bar"_s, u"ｽﾃｰﾀｽﾊﾞｰ(&S)"_s, true},
        {u"mneVisual"_s, u"mneVisualItem(3)"_s, u"&Font"_s, u"ﾌｫﾝﾄ(&F)..."_s, false},
        {u"mneVisual"_s, u"mneVisualInf"_s, u"D&isp col setting..."_s, u"表示ｶﾗﾑ設定(&I)..."_s, false},
        {u"mneWin"_s, {}, u"&Window"_s, u"ｳｨﾝﾄﾞｳ(&W)"_s, true},
        {u"mneWin"_s, u"mneWinItem(0)"_s, u"&Cascade"_s, u"重ねて表示(&C)"_s, true},
        {u"mneWin"_s, u"mneWinItem(1)"_s, u"&Tile"_s, u"並べて表示(&T)"_s, true},
        {u"mneHelp"_s, {}, u"&Help"_s, u"ﾍﾙﾌﾟ(&H)"_s, true},
        {u"mneHelp"_s, u"mneHelpItem"_s, u"&Contents"_s, u"目次(&C)"_s, true},
        {u"mneHelp"_s, u"mneHelpVer"_s, u"&About Tabrix..."_s, u"ﾊﾞｰｼﾞｮﾝ情報(&A)..."_s, true},
    }));
