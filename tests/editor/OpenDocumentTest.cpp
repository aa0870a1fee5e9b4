#include "editor/OpenDocument.h"

#include "app/services/Language.h"
#include "document/DocumentTables.h"
#include "document/RecoveryCopy.h"
#include "grid/SpreadGrid.h"
#include "grid/SpreadHistory.h"
#include "grid/UndoStep.h"
#include "runtime/AnsiText.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

class OpenDocumentTest : public testing::Test
{
protected:
    static constexpr int number = 2;

    OpenDocumentTest()
    {
        resetDocumentTables();
        growDocumentTables(3);
        grid.setColumnCount(1);
        grid.setRowCount(2);
        grid.history().start();
        document.emplace(number, grid.history(), nullptr);
        document->noteLoaded();
        QObject::connect(&*document, &OpenDocument::changedFlagChanged, &grid,
            [this](bool changed) { told << (changed ? u"changed"_s : u"unchanged"_s); });
        QObject::connect(&*document, &OpenDocument::saved, &grid, [this] { told << u"saved"_s; });
        QObject::connect(
            &*document, &OpenDocument::titleChanged, &grid, [this](const QString &title) { told << title; });
        QObject::connect(
            &*document, &OpenDocument::rowCountChanged, &grid, [this](int rows) { told << QString::number(rows); });
    }
    ~OpenDocumentTest() override
    {
        LanguageBase = EnglishBase;
        document.reset();
        resetDocumentTables();
    }

    void edit(const QString &text)
    {
        const UndoStep step(grid.history());
        grid.setText(1, 1, text);
        document->markChanged();
    }

    SpreadGrid grid;
    std::optional<OpenDocument> document;
    QStringList told; ///< by signals
};

} // namespace

TEST_F(OpenDocumentTest, tellsOfEachChangeOfItsFlagOnce)
{
    document->markChanged();
    document->markChanged();
    EXPECT_EQ(told, QStringList(u"changed"_s));
    document->noteSaved();
    EXPECT_EQ(told, QStringList({u"changed"_s, u"unchanged"_s, u"saved"_s}));
}

TEST_F(OpenDocumentTest, keepsTheFlagInTheTableInStep)
{
    document->markChanged();
    EXPECT_EQ(DocFlags[number], (DocFlag{.free = false, .changed = true}));
    document->noteSaved();
    EXPECT_EQ(DocFlags[number], (DocFlag{.free = false, .changed = false}));
    document->markChanged();
    document->release();
    EXPECT_EQ(DocFlags[number], (DocFlag{.free = true, .changed = false}));
    EXPECT_EQ(DocFlags[1], DocFlag());
    EXPECT_EQ(DocFlags[3], DocFlag());
}

TEST_F(OpenDocumentTest, takesItsNumberIntoUse)
{
    DocFlags[3] = {.free = true, .changed = true};
    const OpenDocument other(3, grid.history(), nullptr);
    EXPECT_EQ(DocFlags[3], DocFlag());
}

TEST_F(OpenDocumentTest, isUntitledUntilItHasAFile)
{
    EXPECT_TRUE(document->isUntitled());
    EXPECT_EQ(document->title(), u"No Name"_s);
    LanguageBase = JapaneseBase;
    EXPECT_EQ(document->title(), u"\u7121\u984c"_s);
    document->setPath(u"/a/b.inv"_s);
    EXPECT_FALSE(document->isUntitled());
    EXPECT_EQ(document->path(), u"/a/b.inv"_s);
    EXPECT_EQ(told, QStringList(u"/a/b.inv"_s));
}

TEST_F(OpenDocumentTest, isUntitledInAFileThatIsCalledSo)
{
    document->setPath(u"No Name"_s);
    EXPECT_TRUE(document->isUntitled());
    document->setPath(u"/a/No Name"_s);
    EXPECT_EQ(document->path(), u"/a/No Name"_s) << "a file in a folder can be told from none";
}

TEST_F(OpenDocumentTest, tellsOfTheRowCountWhenItIsAnother)
{
    document->setRowCount(5);
    document->setRowCount(5);
    EXPECT_EQ(told, QStringList(u"5"_s));
    EXPECT_EQ(MachineInfos[number].Paramater, 5);
    EXPECT_EQ(document->rowCount(), 5);
}

TEST_F(OpenDocumentTest, isUnchangedAtTheTextsOfTheFileOnly)
{
    edit(u"a"_s);
    document->noteSaved();
    edit(u"b"_s);
    grid.history().undo();
    document->noteRestored();
    EXPECT_FALSE(document->isChanged());
    grid.history().undo();
    document->noteRestored();
    EXPECT_TRUE(document->isChanged()) << "the file has the text that was taken back";
}

TEST_F(OpenDocumentTest, noUndoLeadsBackToTheFormerMachine)
{
    edit(u"a"_s);
    MachineInfo machine = document->machine();
    machine.Name = u"XT200"_s;
    document->setMachine(machine);
    EXPECT_EQ(MachineInfos[number].Name, u"XT200"_s);
    grid.history().undo();
    document->noteRestored();
    EXPECT_TRUE(document->isChanged());
}

TEST_F(OpenDocumentTest, aMachineThatComesOutAsItWasIsNoObstacleToUndo)
{
    edit(u"a"_s);
    document->setMachine(document->machine());
    grid.history().undo();
    document->noteRestored();
    EXPECT_FALSE(document->isChanged());
}

TEST_F(OpenDocumentTest, aRecoveredOneIsChangedWhateverIsUndone)
{
    document->noteRecovered();
    edit(u"a"_s);
    grid.history().undo();
    document->noteRestored();
    EXPECT_TRUE(document->isChanged()) << "what was recovered is in no file";
}

TEST_F(OpenDocumentTest, isTheWayToWhatIsKnownOfItsFile)
{
    documentOrigin(number).codePage = 932;
    documentOrigin(number).findings = ReadFindings{
        .rowsAnnounced = 3, .rowsFound = 2, .cutRow = 0, .cutRowAt = 0, .bytesUnread = 0, .bytesUndecoded = 0};
    EXPECT_EQ(document->codePage(), 932);
    ASSERT_TRUE(document->findings());
    EXPECT_EQ(document->findings()->rowsFound, 2);
}

TEST_F(OpenDocumentTest, anUntitledOneBeginsWithOneRowAndTheSystemsCodePage)
{
    MachineInfo &machine = MachineInfos[number];
    machine.Capacity = machine.ICapacity = machine.Option = {u"1"_s};
    machine.Paramater = 9;
    documentOrigin(number).codePage = 932;
    OpenDocument::prepareUntitled(number);
    EXPECT_EQ(machine.Capacity + machine.ICapacity + machine.Option, QStringList());
    EXPECT_EQ(document->rowCount(), 1);
    EXPECT_EQ(document->codePage(), ansiCodePageNumber());
}

TEST_F(OpenDocumentTest, aRecoveredOneBeginsWithWhatWasKept)
{
    RecoveryCopy copy;
    copy.info.Name = u"XT200"_s;
    copy.codePage = 932;
    OpenDocument::prepareRecovered(number, copy);
    EXPECT_EQ(document->machine().Name, u"XT200"_s);
    EXPECT_EQ(document->codePage(), 932);
}
