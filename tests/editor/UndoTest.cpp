// Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z in the editor window: every act is one step, and all that shows it goes with it.

#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/editor/UndoSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

// Acts

struct Act
{
    const char *name;
    void (UndoTest::*run)();
};

void PrintTo(const Act &act, std::ostream *out)
{
    *out << act.name;
}

class UndoEachAct : public UndoTest, public testing::WithParamInterface<Act>
{
};

TEST_P(UndoEachAct, takesItBackInOneStepAndMakesItAgain)
{
    open(12);
    copy({1, 1, 1, 1});
    const Shown before = shown();
    (this->*GetParam().run)();
    const Shown after = shown();
    ASSERT_NE(before.texts, after.texts);
    ASSERT_TRUE(after.changed);
    for (const bool second : {false, true}) {
        undo();
        EXPECT_EQ(shown(), before);
        undo(); // nothing is left
        EXPECT_EQ(shown(), before);
        second ? pressKey(grid(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier) : redo();
        EXPECT_EQ(shown(), after);
        redo();
        EXPECT_EQ(shown(), after);
    }
}

INSTANTIATE_TEST_SUITE_P(Acts, UndoEachAct,
    testing::ValuesIn(std::vector<Act>{
        {"typing", &UndoTest::type},
        {"Delete key", &UndoTest::pressDelete},
        {"Cut", &UndoTest::cut},
        {"Paste of a foreign text", &UndoTest::pasteForeignText},
        {"Paste of a block", &UndoTest::pasteBlock},
        {"Paste of rows", &UndoTest::pasteRows},
        {"Add Paste", &UndoTest::addPaste},
        {"Add", &UndoTest::addLine},
        {"Delete", &UndoTest::deleteLines},
        {"Delete of the last rows", &UndoTest::deleteLastLines},
        {"check box by key", &UndoTest::toggleByKey},
        {"check box by mouse", &UndoTest::toggleByMouse},
        {"choice from a list", &UndoTest::chooseFromList},
        {"functional list code", &UndoTest::editFuncCode},
        {"read conditions", &UndoTest::editConditions},
    }));

// What is selected and seen

struct Place
{
    Act act;
    GridBlock undone;
    GridBlock redone;
};

void PrintTo(const Place &place, std::ostream *out)
{
    *out << place.act.name;
}

class UndoPlace : public UndoTest, public testing::WithParamInterface<Place>
{
};

TEST_P(UndoPlace, isSelectedAndScrolledIntoView)
{
    open(200);
    (this->*GetParam().act.run)();
    for (const bool undone : {true, false}) {
        selectCell(1, 150);
        grid().setTopRow(150);
        undone ? undo() : redo();
        EXPECT_EQ(grid().selectedBlock(), undone ? GetParam().undone : GetParam().redone);
        EXPECT_EQ(grid().activeRow(), grid().selectedBlock().row1);
        EXPECT_LE(grid().topRow(), grid().activeRow());
        EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), grid().text(1, grid().activeRow()));
    }
}

INSTANTIATE_TEST_SUITE_P(Acts, UndoPlace,
    testing::ValuesIn(std::vector<Place>{
        {{"typing", &UndoTest::type}, {2, 5, 2, 5}, {2, 5, 2, 5}},
        {{"Delete key", &UndoTest::pressDelete}, {2, 3, 4, 5}, {2, 3, 4, 5}},
        {{"Paste of a block", &UndoTest::pasteBlock}, {2, 7, 4, 10}, {2, 7, 4, 10}},
        {{"Paste of rows", &UndoTest::pasteRows}, {-1, 6, 13, 8}, {-1, 6, 13, 8}},
        {{"Add", &UndoTest::addLine}, {3, 4, 3, 4}, {3, 4, 3, 4}},
        {{"Delete", &UndoTest::deleteLines}, {-1, 3, 13, 5}, {1, 3, 1, 3}},
        {{"functional list code", &UndoTest::editFuncCode}, {11, 3, 11, 3}, {11, 3, 11, 3}},
        {{"read conditions", &UndoTest::editConditions}, {12, 3, 13, 3}, {12, 3, 13, 3}},
    }));

TEST_F(UndoTest, showsTheNumberThatCameBack)
{
    open(12);
    typeInto(1, 5, u"77"_s);
    selectCell(1, 5);
    undo();
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), u"5"_s);
    redo();
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), u"77"_s);
}

TEST_F(UndoTest, selectsNoHiddenCell)
{
    open(12);
    editFuncCode();
    grid().setColumnShown(11, false);
    selectCell(3, 8);
    undo();
    EXPECT_EQ(grid().text(11, 3), u"0003"_s);
    EXPECT_EQ(grid().selectedBlock(), (GridBlock{3, 3, 3, 3}));
}

TEST_F(UndoTest, walksThroughManySteps)
{
    open(12);
    std::vector<Shown> states{shown()};
    for (const auto act : {&UndoTest::type, &UndoTest::deleteLines, &UndoTest::pasteRows, &UndoTest::toggleByKey,
             &UndoTest::addPaste, &UndoTest::cut, &UndoTest::addLine, &UndoTest::editFuncCode}) {
        (this->*act)();
        states.push_back(shown());
    }
    for (size_t at = states.size() - 1; at-- > 0;) {
        undo();
        EXPECT_EQ(shown(), states[at]) << at;
    }
    for (size_t at = 1; at < states.size(); ++at) {
        redo();
        EXPECT_EQ(shown(), states[at]) << at;
    }
}

TEST_F(UndoTest, forgetsWhatWasUndoneWhenSomethingElseIsDone)
{
    open(12);
    type();
    undo();
    typeInto(3, 7, u"1-2"_s);
    const Shown after = shown();
    redo();
    EXPECT_EQ(shown(), after);
    undo();
    EXPECT_FALSE(isChanged());
}

TEST_F(UndoTest, keepsTheHeightsOfRowsThatWereDeleted)
{
    open(12);
    grid().setRowHeight(11, 63);
    deleteLastLines();
    undo();
    EXPECT_EQ(grid().rowHeight(11), 63);
}

// What cannot be undone

TEST_F(UndoTest, doesNotUndoTheLoading)
{
    open(12);
    const Shown before = shown();
    undo();
    redo();
    EXPECT_EQ(shown(), before);
}

TEST_F(UndoTest, leavesANewDocumentAsItIs)
{
    start();
    grid().setFocus();
    const Shown before = shown();
    undo();
    EXPECT_EQ(shown(), before);
}

TEST_F(UndoTest, keepsAStepForEachActOnly)
{
    open(12);
    type();
    selectCell(2, 5);
    pressKey(grid(), Qt::Key_F2); // and leaves the text as it is
    pressKey(*QApplication::focusWidget(), Qt::Key_Return);
    selectCell(8, 5);
    pressKey(grid(), Qt::Key_Delete);
    pressKey(grid(), Qt::Key_Delete); // nothing is left to empty
    undo();
    EXPECT_EQ(grid().text(8, 5), u"%"_s);
    EXPECT_EQ(grid().text(2, 5), u"other"_s);
    undo();
    EXPECT_EQ(grid().text(2, 5), u"Parameter 5"_s);
}

TEST_F(UndoTest, separatesWhatWasTypedFromTheCommandThatEndedTheEdit)
{
    open(12);
    copy({-1, 1, 13, 1});
    selectCell(2, 5);
    pressKey(grid(), Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u"!"_s);
    clickTool(u"ssrbnEdit(3)"_s);
    EXPECT_EQ(grid().text(2, 6), u"Parameter 5!"_s);
    undo();
    EXPECT_EQ(grid().text(2, 5), u"Parameter 5!"_s);
    undo();
    EXPECT_EQ(grid().text(2, 5), u"Parameter 5"_s);
}

TEST_F(UndoTest, belongsToOneWindow)
{
    open(12);
    type();
    frmPrFile &first = editor();
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(4))));
    undo();
    EXPECT_EQ(first.vaspdParam().text(2, 5), u"other"_s);
    frame().makeActive(first);
    undo();
    EXPECT_EQ(first.vaspdParam().text(2, 5), u"Parameter 5"_s);
}

// In an open cell editor

TEST_F(UndoTest, isTheTypedTextsOwnInAnOpenEditor)
{
    open(12);
    type();
    selectCell(2, 7);
    pressKey(grid(), Qt::Key_F2);
    auto &edit = dynamic_cast<QLineEdit &>(*QApplication::focusWidget());
    QTest::keyClicks(&edit, u"abc"_s);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), u"Parameter 7"_s);
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 5), u"other"_s); // nothing left to undo in the editor: the grid stays as it is
    for (const auto &[key, modifiers] : {std::pair(Qt::Key_Y, Qt::KeyboardModifiers(Qt::ControlModifier)),
             std::pair(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier)}) {
        QTest::keyClick(&edit, key, modifiers);
        EXPECT_EQ(edit.text(), u"Parameter 7abc"_s);
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    }
    QTest::keyClick(&edit, Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(grid().text(2, 7), u"Parameter 7abc"_s);
    undo();
    EXPECT_EQ(grid().text(2, 7), u"Parameter 7"_s);
}

// The changed flag

TEST_F(UndoTest, clearsTheFlagWhereTheDocumentWasSavedLast)
{
    open(12);
    type();
    save();
    EXPECT_FALSE(isChanged());
    deleteLines();
    undo();
    EXPECT_FALSE(isChanged());
    undo();
    EXPECT_TRUE(isChanged()); // the file has the typed text
    redo();
    EXPECT_FALSE(isChanged());
    redo();
    EXPECT_TRUE(isChanged());
    save();
    undo();
    EXPECT_TRUE(isChanged());
}

TEST_F(UndoTest, keepsTheFlagWhenTheWayToTheSavedTextIsLost)
{
    open(12);
    type();
    toggleByKey();
    save();
    undo();
    undo();
    typeInto(3, 7, u"1-2"_s);
    undo();
    EXPECT_TRUE(isChanged());
    redo();
    EXPECT_TRUE(isChanged());
}

TEST_F(UndoTest, savesWhatWasUndone)
{
    open(12);
    const QByteArray before = readFile(editor().windowTitle());
    deleteLines();
    addPaste();
    undo();
    undo();
    editor().document().markChanged();
    save();
    EXPECT_EQ(readFile(editor().windowTitle()), before);
}

TEST_F(UndoTest, doesNotUndoTheMachine)
{
    open(12);
    type();
    ModalScript script;
    script.then([](QWidget &dialog) {
        QTest::keyClicks(&control<QLineEdit>(dialog, u"txtKisyuName"_s), u"9"_s);
        QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditInf"_s);
    ASSERT_NE(MachineInfos[docNo()].Name, u"XT-200"_s);
    undo();
    EXPECT_EQ(grid().text(2, 5), u"Parameter 5"_s);
    EXPECT_TRUE(isChanged());
    save();
    redo();
    undo();
    EXPECT_FALSE(isChanged());
}

TEST_F(UndoTest, givesTheFlagBackWhenTheMachineDialogChangedNothing)
{
    open(12);
    type();
    ModalScript script;
    script.then([](QWidget &dialog) { QTest::mouseClick(&control<QPushButton>(dialog, u"cmdOK"_s), Qt::LeftButton); });
    chooseMenu(u"mneEdit"_s, u"mneEditInf"_s);
    undo();
    EXPECT_FALSE(isChanged());
}

// Size and speed

TEST_F(UndoTest, restoresThousandsOfRowsAsABlock)
{
    open(3000);
    copy({-1, 1, 13, 1000});
    selectCell(1, 1501);
    const Shown before = shown();
    paste();
    QSignalSpy edited(&grid(), &SpreadGrid::cellsEdited);
    QSignalSpy changed(grid().model(), &QAbstractItemModel::dataChanged);
    QSignalSpy left(&grid(), &SpreadGrid::cellLeft);
    undo();
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(edited.count(), 0);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_LE(left.count(), 1);
}
