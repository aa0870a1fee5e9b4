#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "storage/FileBackup.h"
#include "tests/support/FrameTest.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Every way to a save.
enum class Way { Menu, Key, ToolButton, SaveAs, Close };

const QString changedQuestion =
    u"Another program has changed this file since it was opened or saved here. Replace it all the same?"_s;

/// A window with the file "a.inv" of nine rows.
class SaveQuestions : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        open();
    }

    void open()
    {
        file = writeFile(u"a.inv"_s, document(9));
        ASSERT_TRUE(frame().documents().OpenPrFile(file));
    }
    void save(Way way, ModalScript &script)
    {
        switch (way) {
        case Way::Menu:
            return chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
        case Way::Key:
            return pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
        case Way::ToolButton:
            return clickTool(u"ssrbnSave"_s);
        case Way::SaveAs:
            return chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
        case Way::Close:
            return chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
        }
        FAIL() << script.asked();
    }
    /// What comes before the question that is tested.
    void answerFirst(Way way, ModalScript &script)
    {
        if (way == Way::SaveAs) {
            script.thenFile(path(u"b.inv"_s));
        } else if (way == Way::Close) {
            script.thenMessage(file + u" is update.\nSave?"_s, u"cmdYes"_s);
        }
    }
    QString target(Way way) const { return way == Way::SaveAs ? path(u"b.inv"_s) : file; }
    void expectNothingDone()
    {
        ASSERT_EQ(frame().openEditors().size(), 2);
        EXPECT_TRUE(DocFlags[docNo()].changed);
        EXPECT_EQ(editor().windowTitle(), file);
        EXPECT_FALSE(QDir(backupFolder(file)).exists());
        EXPECT_FALSE(QFile::exists(path(u"b.inv"_s)));
        EXPECT_EQ(recentFiles().first(), file);
    }
    static QString readBackQuestion(const QString &lines, int findings = 1)
    {
        return u"Not everything would be read back from the file as it is now. Places concerned: %1\n\n\u2022 %2\n\n"
               "Save it like this all the same?"_s.arg(QString::number(findings), lines);
    }

    QString file;
    const QString commaLine = u"Row 3, parameter 3, \"Name\": the text has a comma, which ends the field."_s;
};

class EveryWay : public SaveQuestions, public testing::WithParamInterface<Way>
{
};

INSTANTIATE_TEST_SUITE_P(
    Ways, EveryWay, testing::Values(Way::Menu, Way::Key, Way::ToolButton, Way::SaveAs, Way::Close));

TEST_P(EveryWay, asksBeforeItWritesWhatIsNotReadBackAndGoesThere)
{
    typeInto(ParameterColumn::Name, 3, u"a, b"_s);
    grid().setActiveCell(ParameterColumn::Number, 9);
    ModalScript script;
    answerFirst(GetParam(), script);
    script.then([this](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.text(), readBackQuestion(commaLine));
        EXPECT_EQ(box.windowTitle(), target(GetParam()));
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.buttons().size(), 2);
        QTest::keyClick(&window, Qt::Key_Return); // means No
    });
    save(GetParam(), script);
    ASSERT_NO_FATAL_FAILURE(expectNothingDone());
    EXPECT_EQ(readFile(file), document(9));
    EXPECT_EQ(grid().activeColumn(), int(ParameterColumn::Name));
    EXPECT_EQ(grid().activeRow(), 3);
}

TEST_P(EveryWay, writesOnYesWhatIsNotReadBack)
{
    typeInto(ParameterColumn::Name, 3, u"a, b"_s);
    const int number = docNo();
    ModalScript script;
    answerFirst(GetParam(), script);
    script.thenMessage(readBackQuestion(commaLine), u"cmdYes"_s);
    save(GetParam(), script);
    EXPECT_EQ(readFile(target(GetParam())), document(9).replace("Parameter 3", "a, b"));
    EXPECT_FALSE(DocFlags[number].changed);
    EXPECT_EQ(frame().openEditors().size(), GetParam() == Way::Close ? 1 : 2);
}

TEST_P(EveryWay, asksBeforeItReplacesWhatAnotherProgramChanged)
{
    typeInto(ParameterColumn::Name, 3, u"mine"_s);
    writeFile(u"a.inv"_s, document(5));
    ModalScript script;
    answerFirst(GetParam(), script);
    if (GetParam() != Way::SaveAs) { // under another name nothing is lost
        script.then([this](QWidget &window) {
            const auto &box = dynamic_cast<QMessageBox &>(window);
            EXPECT_EQ(box.text(), changedQuestion);
            EXPECT_EQ(box.windowTitle(), file);
            EXPECT_EQ(box.icon(), QMessageBox::Warning);
            QTest::keyClick(&window, Qt::Key_Escape); // means No
        });
    }
    save(GetParam(), script);
    EXPECT_EQ(readFile(file), document(5));
    if (GetParam() != Way::SaveAs) {
        ASSERT_NO_FATAL_FAILURE(expectNothingDone());
    }
}

TEST_F(SaveQuestions, replacesOnYesWhatAnotherProgramChanged)
{
    typeInto(ParameterColumn::Name, 3, u"mine"_s);
    writeFile(u"a.inv"_s, document(5));
    ModalScript script;
    script.thenMessage(changedQuestion, u"cmdYes"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), document(9).replace("Parameter 3", "mine"));
    typeInto(ParameterColumn::Name, 4, u"mine, too"_s);
    typeInto(ParameterColumn::Name, 4, u"mine"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s); // asks no more
    EXPECT_FALSE(DocFlags[docNo()].changed);
}

TEST_F(SaveQuestions, asksOnceWhenSaveAsIsToReplaceAFile)
{
    typeInto(ParameterColumn::Name, 3, u"mine"_s);
    writeFile(u"a.inv"_s, document(5));
    ModalScript script;
    script.thenFile(file).then([](QWidget &window) {
        auto *box = qobject_cast<QMessageBox *>(&window);
        ASSERT_TRUE(box);
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(script.asked(), 2);
    EXPECT_EQ(readFile(file), document(9).replace("Parameter 3", "mine"));
}

TEST_F(SaveQuestions, asksNothingAboutAFileThatTwoWindowsOfOursSave)
{
    ASSERT_TRUE(frame().documents().OpenPrFile(file));
    typeInto(ParameterColumn::Name, 3, u"second window"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    frame().makeActive(*frame().openEditors().at(1));
    grid().setText(ParameterColumn::Name, 3, u"first window"_s);
    const ModalScript script;
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), document(9).replace("Parameter 3", "first window"));
}

TEST_F(SaveQuestions, namesTheFirstFiveOfManyAndTheirNumber)
{
    QStringList lines;
    for (int row = 2; row <= 8; ++row) {
        typeInto(ParameterColumn::Unit, row, u"a,b"_s);
        lines << u"\u2022 Row %1, parameter %1, \"Unit\": the text has a comma, which ends the field."_s.arg(row);
    }
    ModalScript script;
    script.thenMessage(
        u"Not everything would be read back from the file as it is now. Places concerned: 7. The first of them:\n\n"_s
            + lines.first(5).join(u'\n') + u"\n\nSave it like this all the same?"_s,
        u"cmdNo"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    ASSERT_NO_FATAL_FAILURE(expectNothingDone());
}

TEST_F(SaveQuestions, asksInJapanese)
{
    setCountryCode(81);
    start();
    open();
    typeInto(ParameterColumn::Name, 3, u"a, b"_s);
    ModalScript script;
    script.thenMessage(u"このまま保存すると、次に開いたとき元どおりに読み込めない箇所があります。該当箇所: 1\n\n"
                       "\u2022 3 行目、パラメータ 3、「"_s
            + grid().text(ParameterColumn::Name, 0)
            + u"」: 文字列中のコンマで項目が区切られます。\n\nこのまま保存しますか？"_s,
        u"いいえ(&N)"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), document(9));
}

TEST_F(SaveQuestions, goesToTheRowsNumberWhenTheColumnIsHidden)
{
    typeInto(ParameterColumn::Unit, 7, u" %"_s);
    for (const bool isShown : {true, false}) {
        grid().setColumnShown(ParameterColumn::Unit, isShown);
        grid().setActiveCell(ParameterColumn::Name, 1);
        ModalScript script;
        script.thenEscape();
        chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
        EXPECT_EQ(grid().activeColumn(), int(isShown ? ParameterColumn::Unit : ParameterColumn::Number));
        EXPECT_EQ(grid().activeRow(), 7);
    }
}

TEST_F(SaveQuestions, goesToTheCellWithACharacterThatTheCodePageLacks)
{
    grid().setColumnShown(ParameterColumn::Unit, true);
    grid().setText(ParameterColumn::Unit, 7, u"漢"_s);
    grid().setActiveCell(ParameterColumn::Name, 1);
    ModalScript script;
    script.thenMessage(u"Row 7: the character \"漢\" (U+6F22) does not exist in code page 1252."_s, u"OK"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(grid().activeColumn(), int(ParameterColumn::Unit));
    EXPECT_EQ(grid().activeRow(), 7);
    EXPECT_EQ(frame().focusWidget(), &grid());
    EXPECT_EQ(readFile(file), document(9));
}

TEST_F(SaveQuestions, asksAboutAMachineWithoutANameAndStaysAtTheActiveCell)
{
    MachineInfos[docNo()].Name.clear();
    typeInto(ParameterColumn::Name, 3, u"mine"_s);
    grid().setActiveCell(ParameterColumn::Name, 5);
    ModalScript script;
    script.thenMessage(readBackQuestion(u"Machine information, Name: without a model name neither the machine "
                                        "information nor the number of rows is read."_s),
        u"cmdNo"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    ASSERT_NO_FATAL_FAILURE(expectNothingDone());
    EXPECT_EQ(grid().activeRow(), 5);
}

TEST_F(SaveQuestions, asksAboutACapacityWithoutItsCurrent)
{
    MachineInfos[docNo()].Capacity << u"0.75"_s;
    typeInto(ParameterColumn::Name, 3, u"mine"_s);
    ModalScript script;
    script.thenMessage(readBackQuestion(u"Machine information, Capacity1: the rated current of this capacity is "
                                        "missing. The file would end there, without its parameters."_s),
        u"cmdNo"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    ASSERT_NO_FATAL_FAILURE(expectNothingDone());
    EXPECT_EQ(readFile(file), document(9));
}

TEST_F(SaveQuestions, asksAboutAnUntitledDocumentBelowTheNameThatItIsToGet)
{
    frame().makeActive(*frame().openEditors().first());
    ModalScript script;
    script.thenFile(path(u"b.inv"_s)).then([this](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.windowTitle(), path(u"b.inv"_s));
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_FALSE(QFile::exists(path(u"b.inv"_s)));
    EXPECT_EQ(editor().windowTitle(), u"No Name"_s);
}

TEST_F(SaveQuestions, stopTheExitOnNo)
{
    typeInto(ParameterColumn::Name, 3, u"a, b"_s);
    ModalScript script;
    script.thenMessage(file + u" is update.\nSave?"_s, u"cmdYes"_s)
        .thenMessage(readBackQuestion(commaLine), u"cmdNo"_s);
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(grid().text(ParameterColumn::Name, 3), u"a, b"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

} // namespace
