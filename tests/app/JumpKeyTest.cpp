#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class JumpKey : public FrameTest
{
protected:
    void SetUp() override { start(writeFile(u"a.inv"_s, document(200))); }

    QLineEdit &box() { return control<QLineEdit>(frame(), u"txtPr"_s); }
};

TEST_F(JumpKey, entersTheBoxWithItsTextSelected)
{
    grid().setActiveCell(2, 7);
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &box());
    EXPECT_EQ(box().selectedText(), u"7"_s);
}

TEST_F(JumpKey, leadsToTheParameterThatIsTypedThen)
{
    press(Qt::Key_G, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"123"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &grid());
    EXPECT_EQ(grid().activeRow(), 123);
    EXPECT_EQ(grid().activeColumn(), 1);
}

TEST_F(JumpKey, selectsTheTextAgainInTheBoxItself)
{
    press(Qt::Key_G, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"12"_s);
    EXPECT_TRUE(box().selectedText().isEmpty());
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(box().selectedText(), u"12"_s);
}

TEST_F(JumpKey, showsAHiddenStatusBarAndItsMarks)
{
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(1)"_s);
    ASSERT_FALSE(frame().isBarShown(Bar::Status));
    pressKey(grid(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_TRUE(frame().isBarShown(Bar::Status));
    EXPECT_TRUE(menuCommand(u"mneVisual"_s, u"mneVisualItem(1)"_s).isChecked());
    EXPECT_EQ(QApplication::focusWidget(), &box());
}

TEST_F(JumpKey, takesWhatIsBeingTypedIntoACell)
{
    grid().setActiveCell(2, 1);
    press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), u" more"_s);
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &box());
    EXPECT_EQ(grid().text(2, 1), u"Parameter 1 more"_s);
}

TEST_F(JumpKey, worksWithoutADocument)
{
    while (frame().activeEditor()) {
        editor().parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    pressKey(frame(), Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &box());
    press(Qt::Key_Return);
    EXPECT_TRUE(frame().isVisible());
}
