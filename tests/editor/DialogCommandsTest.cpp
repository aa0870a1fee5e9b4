#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

/// The dialogs as the editor window opens them: what reaches them from the active row, and what comes back.
class DialogCommands : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        open(u"a.inv"_s);
        grid().setActiveCell(2, 3);
    }
    void open(const QString &name) { ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(name, document(4)))); }

    static void click(QWidget &dialog, const QString &button)
    {
        QTest::mouseClick(&control<QPushButton>(dialog, button), Qt::LeftButton);
    }
    static QString shown(QWidget &dialog, const QString &label) { return control<QLabel>(dialog, label).text(); }
    bool isChanged() { return DocFlags[docNo()].changed; }
    QByteArray saved()
    {
        chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
        return readFile(editor().windowTitle());
    }
};

TEST_F(DialogCommands, editTheFunctionCodeOfTheActiveRowFromTheMenu)
{
    ModalScript script;
    script.then([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Functional List Code"_s);
        EXPECT_EQ(shown(dialog, u"lblPr"_s), u"Pr.3"_s);
        EXPECT_EQ(shown(dialog, u"lblFuncCode(1)"_s), u"0003"_s);
        QTest::mouseClick(&control<QCheckBox>(dialog, u"chkFunc(4)"_s), Qt::LeftButton, {}, QPoint(8, 8));
        click(dialog, u"cmdOK"_s);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditFunc"_s);
    EXPECT_EQ(grid().text(ParameterColumn::FuncCode, 3), u"0013"_s);
    EXPECT_EQ(grid().text(ParameterColumn::FuncCode, 2), u"0003"_s);
    EXPECT_NE(grid().textColour(ParameterColumn::FuncCode, 3), QColor(changedCellColour));
    EXPECT_TRUE(isChanged());
    EXPECT_TRUE(saved().contains(",Parameter 3,%,0.1,-1,-1,3,19,"));
}

TEST_F(DialogCommands, leaveTheCodeAloneOnCancel)
{
    grid().setText(ParameterColumn::FuncCode, 3, u"00ff"_s);
    ModalScript script;
    for (const QString &button : {u"cmdCancel"_s, u"cmdOK"_s}) {
        script.then([button](QWidget &dialog) {
            EXPECT_EQ(shown(dialog, u"lblFuncCode(1)"_s), u"00FF"_s);
            click(dialog, button); // OK without a change leaves even the small letters
        });
        clickTool(u"ssrbnEdit(6)"_s);
        EXPECT_EQ(grid().text(ParameterColumn::FuncCode, 3), u"00ff"_s);
        EXPECT_FALSE(isChanged());
    }
}

struct CodeText
{
    QString cell;
    QString shown;
    QString afterOk;
};

class CodeTexts : public DialogCommands, public testing::WithParamInterface<CodeText>
{
};

TEST_P(CodeTexts, areReadAsHexadecimalUpToAnotherCharacter)
{
    grid().setText(ParameterColumn::FuncCode, 3, GetParam().cell);
    ModalScript script;
    script.then([](QWidget &dialog) {
        EXPECT_EQ(shown(dialog, u"lblFuncCode(1)"_s), GetParam().shown);
        click(dialog, u"cmdOK"_s);
    });
    clickTool(u"ssrbnEdit(6)"_s);
    EXPECT_EQ(grid().text(ParameterColumn::FuncCode, 3), GetParam().afterOk);
    EXPECT_EQ(isChanged(), GetParam().cell != GetParam().afterOk);
}

INSTANTIATE_TEST_SUITE_P(Cells, CodeTexts,
    testing::ValuesIn(std::vector<CodeText>{
        {{}, u"0000"_s, {}},
        {u"12G4"_s, u"0012"_s, u"12G4"_s},
        {u"7000"_s, u"7000"_s, u"0000"_s},
        {u"8001"_s, u"8001"_s, u"0001"_s},
    }));

TEST_F(DialogCommands, reportACodeBeyondSixteenBits)
{
    grid().setText(ParameterColumn::FuncCode, 3, u"12345"_s);
    ModalScript script;
    script.thenMessage(u"Overflow"_s, u"OK"_s);
    chooseMenu(u"mneEdit"_s, u"mneEditFunc"_s);
    EXPECT_EQ(grid().text(ParameterColumn::FuncCode, 3), u"12345"_s);
    EXPECT_FALSE(isChanged());
}

TEST_F(DialogCommands, chooseTheLabelsByTheFilesName)
{
    open(u"kqm3xyz.inv"_s);
    ModalScript script;
    script.then([](QWidget &dialog) {
        EXPECT_FALSE(control<QCheckBox>(dialog, u"chkFunc(8)"_s).isEnabled());
        EXPECT_TRUE(control<QCheckBox>(dialog, u"chkFunc(14)"_s).isVisible());
        click(dialog, u"cmdCancel"_s);
    });
    clickTool(u"ssrbnEdit(6)"_s);
}

TEST_F(DialogCommands, editTheReadConditionsOfTheActiveRow)
{
    ASSERT_EQ(grid().text(ParameterColumn::Condition, 3), u"79=1"_s);
    ModalScript script;
    script.then([](QWidget &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Pr Read Condition"_s);
        EXPECT_EQ(shown(dialog, u"lblPr"_s), u"Pr.3"_s);
        EXPECT_EQ(shown(dialog, u"lblCount(1)"_s), u"1"_s);
        EXPECT_EQ(control<SpreadGrid>(dialog, u"vaspdCond(0)"_s).text(1, 1), u"79"_s);
        click(dialog, u"cmdAdd(1)"_s);
        click(dialog, u"cmdOK"_s);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
    EXPECT_EQ(grid().text(ParameterColumn::ConditionCount, 3), u"2"_s);
    EXPECT_EQ(grid().text(ParameterColumn::Condition, 3), u"79=1,MODE=0"_s);
    EXPECT_NE(grid().textColour(ParameterColumn::Condition, 3), QColor(changedCellColour));
    EXPECT_TRUE(isChanged());
    EXPECT_TRUE(saved().contains("2,3,1003,Parameter 3,%,0.1,-1,-1,3,3,1,1,0,30,79,0,1,MODE,0,0\r\n"));
}

TEST_F(DialogCommands, keepTheFormerTextWhenNoConditionIsLeft)
{
    ModalScript script;
    script.then([](QWidget &dialog) {
        click(dialog, u"cmdAdd(1)"_s);
        click(dialog, u"cmdOK"_s);
    });
    script.then([](QWidget &dialog) {
        click(dialog, u"cmdDell(0)"_s);
        click(dialog, u"cmdOK"_s);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
    grid().setActiveCell(2, 4);
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
    EXPECT_EQ(grid().text(ParameterColumn::ConditionCount, 4), u"0"_s);
    EXPECT_EQ(grid().text(ParameterColumn::Condition, 4), u"79=1,MODE=0"_s);
}

TEST_F(DialogCommands, leaveTheConditionsAloneOnCancel)
{
    ModalScript script;
    script.then([](QWidget &dialog) {
        click(dialog, u"cmdAdd(1)"_s);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
    EXPECT_EQ(grid().text(ParameterColumn::Condition, 3), u"79=1"_s);
    EXPECT_FALSE(isChanged());
}

TEST_F(DialogCommands, editTheMachineInformationFromMenuAndToolBar)
{
    for (const QString &name : {u"First"_s, u"Second"_s}) {
        ModalScript script;
        script.then([&](QWidget &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Machine Infomation"_s);
            auto &box = control<QLineEdit>(dialog, u"txtKisyuName"_s);
            box.setFocus();
            QTest::keyClicks(&box, name);
            click(dialog, u"cmdOK"_s);
        });
        if (name == u"First"_s) {
            chooseMenu(u"mneEdit"_s, u"mneEditInf"_s);
        } else {
            clickTool(u"ssrbnEdit(7)"_s);
        }
        EXPECT_EQ(MachineInfos[docNo()].Name, name);
        EXPECT_TRUE(isChanged());
        EXPECT_TRUE(saved().startsWith("[Inverter]\r\nName=" + name.toLatin1() + "\r\n"));
    }
}

TEST_F(DialogCommands, leaveTheMachineInformationAloneWithoutAnEdit)
{
    const MachineInfo before = MachineInfos[docNo()];
    ModalScript script;
    script.then([](QWidget &dialog) { click(dialog, u"cmdOK"_s); });
    clickTool(u"ssrbnEdit(7)"_s);
    EXPECT_EQ(MachineInfos[docNo()], before);
    EXPECT_FALSE(isChanged());
}

TEST_F(DialogCommands, openThePrintDialogFromMenuToolBarAndKey)
{
    ModalScript script;
    for (int i = 0; i < 3; ++i) {
        script.then([this](QWidget &dialog) {
            control<QCheckBox>(dialog, u"chkPrint(0)"_s);
            EXPECT_EQ(dialog.windowTitle(), editor().windowTitle());
            click(dialog, u"cmdCancel"_s);
        });
    }
    QTest::keyClick(&grid(), Qt::Key_P, Qt::ControlModifier);
    chooseMenu(u"mneFile"_s, u"mneFilePrint"_s);
    clickTool(u"ssrbnPrint"_s);
    EXPECT_EQ(script.asked(), 3);
}

TEST_F(DialogCommands, doNothingOnAGridWithoutRows)
{
    grid().setRowCount(0);
    const ModalScript script;
    chooseMenu(u"mneEdit"_s, u"mneEditFunc"_s);
    chooseMenu(u"mneEdit"_s, u"mneEditCond"_s);
    EXPECT_EQ(script.asked(), 0);
}
