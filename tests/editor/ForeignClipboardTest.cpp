// The clipboard between the program and another one, which is a process of its own.

#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/Clipboard.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QClipboard>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class ForeignClipboard : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(6))));
    }
    ~ForeignClipboard() override
    {
        m_owner.kill();
        m_owner.waitForFinished(patience);
    }

    /// Another program copies that text; it goes on owning it.
    void copyElsewhere(const QString &text)
    {
        m_owner.start(peer(), {u"set"_s, writeFile(u"text"_s, text.toUtf8())});
        ASSERT_TRUE(m_owner.waitForReadyRead(patience));
        ASSERT_EQ(m_owner.readLine(), "ready\n");
        ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::clipboard()->ownsClipboard(); }, patience));
    }
    /// The text as another program reads it, in UTF-8.
    static QByteArray readElsewhere()
    {
        QProcess reader;
        reader.start(peer(), {u"get"_s});
        // This process answers the other one's question.
        EXPECT_TRUE(QTest::qWaitFor([&] { return reader.state() == QProcess::NotRunning; }, patience));
        EXPECT_EQ(reader.exitCode(), 0);
        return reader.readAllStandardOutput();
    }
    void copy(const GridBlock &block)
    {
        grid().selectBlock(block);
        chooseMenu(u"mneEdit"_s, u"mneEditCopy"_s);
    }
    bool isEnabled(const QString &command) { return menuCommand(u"mneEdit"_s, command).isEnabled(); }
    void activateAgain()
    {
        frmPrFile &first = editor();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"b.inv"_s, document(3))));
        frame().makeActive(first);
    }

private:
    static QString peer() { return QStringLiteral(TABRIX_CLIPBOARD_PEER); }

    QProcess m_owner;
};

TEST_F(ForeignClipboard, letsPasteButNotAddPasteRunWhenTheWindowIsActivated)
{
    EXPECT_FALSE(isEnabled(u"mneEditPaste"_s));
    copyElsewhere(u"1\tx\r\n"_s);
    activateAgain();
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
    EXPECT_FALSE(isEnabled(u"mneEditAddPaste"_s));
    EXPECT_TRUE(toolButton(u"ssrbnEdit(2)"_s).isEnabled());
    EXPECT_FALSE(toolButton(u"ssrbnEdit(3)"_s).isEnabled());
}

TEST_F(ForeignClipboard, putsTheWholeTextIntoTheActiveCell)
{
    const QString text = u"\u00e9\tb\r\nc\td\r\n"_s;
    copyElsewhere(text);
    grid().selectBlock({2, 3, 2, 3});
    const QString beside = grid().text(3, 3);
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 3), text);
    EXPECT_EQ(grid().text(3, 3), beside);
    EXPECT_EQ(grid().text(2, 4), u"Parameter 4"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
}

TEST_F(ForeignClipboard, putsASpreadsheetsSingleCellInWithoutItsLineEnd)
{
    copyElsewhere(u"cell\r\n"_s);
    grid().selectBlock({2, 3, 2, 3});
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 3), u"cell"_s);
}

TEST_F(ForeignClipboard, voidsTheCopyThatWasMadeHere)
{
    const QString text = u"b\tc\r\nd\te"_s;
    copy({-1, 2, 13, 3});
    ASSERT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    copyElsewhere(text);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isEnabled(u"mneEditAddPaste"_s); }));
    EXPECT_FALSE(toolButton(u"ssrbnEdit(3)"_s).isEnabled());
    EXPECT_TRUE(isEnabled(u"mneEditPaste"_s));
    EXPECT_EQ(clipboardRecord(), ClipboardRecord());
    grid().selectBlock({2, 5, 2, 5});
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(grid().text(2, 5), text);
    EXPECT_EQ(grid().text(2, 6), u"Parameter 6"_s);
}

TEST_F(ForeignClipboard, leavesTheCopyWhenTheOtherProgramOnlyOffersItOn)
{
    copy({-1, 2, 13, 3});
    copyElsewhere(QApplication::clipboard()->text());
    EXPECT_TRUE(isEnabled(u"mneEditAddPaste"_s));
    grid().selectBlock({2, 5, 2, 5});
    chooseMenu(u"mneEdit"_s, u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 8);
    EXPECT_EQ(grid().text(2, 5), u"Parameter 2"_s);
}

TEST_F(ForeignClipboard, readsACellAsItsText)
{
    copy({2, 3, 2, 3});
    EXPECT_EQ(readElsewhere(), "Parameter 3");
}

TEST_F(ForeignClipboard, readsABlockByTabsAndLineEnds)
{
    copy({1, 2, 2, 4});
    EXPECT_EQ(readElsewhere(), "2\tParameter 2\r\n3\tParameter 3\r\n4\tParameter 4");
}

TEST_F(ForeignClipboard, readsRowsWithTheirNumbers)
{
    grid().setText(2, 5, u"Temp\u00e9rature \u540d\u79f0"_s);
    copy({-1, 5, 13, 6});
    const auto cells = [this](int row) { return grid().blockText({3, row, 13, row}).toUtf8(); };
    EXPECT_EQ(
        readElsewhere(), "5\t5\tTemp\u00e9rature \u540d\u79f0\t" + cells(5) + "\r\n6\t6\tParameter 6\t" + cells(6));
}

TEST_F(ForeignClipboard, leavesNothingBehindAfterEscape)
{
    copyElsewhere(u"foreign"_s);
    pressKey(grid(), Qt::Key_Escape);
    EXPECT_EQ(readElsewhere(), "");
}
