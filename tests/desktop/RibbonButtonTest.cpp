#include "desktop/RibbonButton.h"

#include "desktop/Picture.h"
#include "tests/support/Patience.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace {

class RibbonButtonTest : public testing::Test
{
protected:
    RibbonButtonTest()
    {
        button.setPictures(1001, 1002);
        button.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&button, patience));
    }

    QImage shown(const QIcon &icon, QIcon::Mode mode) const { return icon.pixmap({24, 24}, 1, mode).toImage(); }

    RibbonButton button;
    QSignalSpy clicked{&button, &RibbonButton::clickedByUser};
    QSignalSpy moved{&button, &RibbonButton::mouseMoved};
};

} // namespace

TEST_F(RibbonButtonTest, goesDownAndTellsOnceWhenClicked)
{
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(button.value());
}

TEST_F(RibbonButtonTest, isReachedByTheKeyboard)
{
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(RibbonButtonTest, emitsNothingWhenItsValueIsSet)
{
    button.setValue(true);
    EXPECT_TRUE(button.value());
    button.setValue(false);
    EXPECT_FALSE(button.value());
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(RibbonButtonTest, actsAsAPushButtonWhenItsHandlerRaisesIt)
{
    QObject::connect(&button, &RibbonButton::clickedByUser, &button, [this] { button.setValue(false); });
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_FALSE(button.value());
}

TEST_F(RibbonButtonTest, takesNoClickWhileDisabled)
{
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_FALSE(button.value());
}

TEST_F(RibbonButtonTest, reportsMouseMovesWithoutAPressedButton)
{
    QTest::mouseMove(&button, {3, 3});
    QTest::mouseMove(&button, {8, 8});
    EXPECT_TRUE(QTest::qWaitFor([this] { return moved.count() > 0; }, patience));
}

TEST_F(RibbonButtonTest, showsTheSecondPictureWhileDisabled)
{
    EXPECT_EQ(shown(button.icon(), QIcon::Normal), shown(Picture::icon(1001), QIcon::Normal));
    EXPECT_EQ(shown(button.icon(), QIcon::Disabled), shown(Picture::icon(1002), QIcon::Normal));
}

TEST_F(RibbonButtonTest, oneWithASinglePictureStillLooksDisabled)
{
    button.setPictures(1000, 0);
    EXPECT_NE(shown(button.icon(), QIcon::Disabled), shown(button.icon(), QIcon::Normal));
}
