#include "dialogs/frmCap.h"

#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString capacityName = u"Text1(0)"_s;
const QString currentName = u"Text1(1)"_s;

class CapDialog : public testing::Test
{
protected:
    void SetUp() override { useEnglish(); }

    bool show(const std::function<void()> &act)
    {
        whileShown(dialog, act);
        return dialog.ShowCapForm(values);
    }

    QLineEdit &box(const QString &name) { return control<QLineEdit>(dialog, name); }

    /// Types both texts, moving from box to box with Tab.
    void fill(const QString &capacity, const QString &current)
    {
        type(capacity);
        press(Qt::Key_Tab);
        type(current);
    }

    frmCap dialog;
    QStringList values{u"a"_s, u"b"_s};
};

TEST_F(CapDialog, returnsBothTextsAsTyped)
{
    EXPECT_TRUE(show([&] {
        fill(u"0.75"_s, u" 010,5 "_s);
        click(dialog, u"cmdOK"_s);
    }));
    EXPECT_EQ(values, (QStringList{u"0.75"_s, u" 010,5 "_s}));
}

TEST_F(CapDialog, enterIsOk)
{
    EXPECT_TRUE(show([&] {
        fill(u"-1"_s, u"1e3"_s);
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(values, (QStringList{u"-1"_s, u"1e3"_s}));
}

struct Refused
{
    QString capacity;
    QString current;
    QString focus;
};

class CapRefusal : public CapDialog, public testing::WithParamInterface<Refused>
{
};

TEST_P(CapRefusal, keepsTheDialogOpenAndEntersTheBox)
{
    EXPECT_FALSE(show([&] {
        fill(GetParam().capacity, GetParam().current);
        click(dialog, u"cmdOK"_s);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(focusedName(), GetParam().focus);
        EXPECT_EQ(box(GetParam().focus).selectedText(), box(GetParam().focus).text());
        press(Qt::Key_Escape);
    }));
    EXPECT_EQ(values, (QStringList{u"a"_s, u"b"_s}));
}

INSTANTIATE_TEST_SUITE_P(Texts, CapRefusal,
    testing::ValuesIn(std::vector<Refused>{
        {u""_s, u""_s, capacityName},
        {u""_s, u"5"_s, capacityName},
        {u"kW"_s, u"5"_s, capacityName},
        {u"5kW"_s, u"x"_s, capacityName},
        {u"5"_s, u""_s, currentName},
        {u"5"_s, u"1.2.3"_s, currentName},
    }));

TEST_F(CapDialog, okAfterARefusalIsTaken)
{
    EXPECT_TRUE(show([&] {
        fill(u"x"_s, u"3"_s);
        press(Qt::Key_Return);
        type(u"2.2"_s); // the refused text is selected, so it goes
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(values, (QStringList{u"2.2"_s, u"3"_s}));
}

class CapCancel : public CapDialog, public testing::WithParamInterface<std::function<void(frmCap &)>>
{
};

TEST_P(CapCancel, leavesTheValuesAlone)
{
    EXPECT_FALSE(show([&] {
        fill(u"1"_s, u"2"_s);
        GetParam()(dialog);
    }));
    EXPECT_EQ(values, (QStringList{u"a"_s, u"b"_s}));
}

INSTANTIATE_TEST_SUITE_P(Ways, CapCancel,
    testing::Values([](frmCap &dialog) { click(dialog, u"cmdCancel"_s); }, [](frmCap &) { press(Qt::Key_Escape); },
        [](frmCap &dialog) { dialog.close(); }));

TEST_F(CapDialog, opensEmptyEachTime)
{
    show([&] {
        fill(u"1"_s, u"2"_s);
        press(Qt::Key_Return);
    });
    EXPECT_FALSE(show([&] {
        EXPECT_EQ(box(capacityName).text(), u""_s);
        EXPECT_EQ(box(currentName).text(), u""_s);
        EXPECT_EQ(focusedName(), capacityName);
        press(Qt::Key_Escape);
    }));
}

TEST_F(CapDialog, fillsNoMoreEntriesThanItHasBoxes)
{
    values = {u"a"_s, u"b"_s, u"c"_s};
    show([&] {
        fill(u"1"_s, u"2"_s);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(values, (QStringList{u"1"_s, u"2"_s, u"c"_s}));
}

TEST_F(CapDialog, fillsOnlyTheEntriesThatAreAskedFor)
{
    values = {u"a"_s};
    show([&] {
        fill(u"1"_s, u"2"_s);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(values, QStringList{u"1"_s});
}

TEST_F(CapDialog, enteringABoxSelectsItsText)
{
    show([&] {
        fill(u"12"_s, u"34"_s);
        press(Qt::Key_Backtab);
        EXPECT_EQ(box(capacityName).selectedText(), u"12"_s);
        QTest::mouseClick(&box(currentName), Qt::LeftButton);
        EXPECT_EQ(box(currentName).selectedText(), u"34"_s);
        press(Qt::Key_V, Qt::AltModifier);
        EXPECT_EQ(focusedName(), capacityName);
        EXPECT_EQ(box(capacityName).selectedText(), u"12"_s);
        press(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(focusedName(), currentName);
        press(Qt::Key_Escape);
    });
}

TEST_F(CapDialog, aSecondClickPlacesTheCaret)
{
    show([&] {
        fill(u"12"_s, u"34"_s);
        QTest::mouseClick(&box(capacityName), Qt::LeftButton);
        QTest::mouseClick(&box(capacityName), Qt::LeftButton, {}, QPoint(box(capacityName).width() - 4, 8));
        EXPECT_FALSE(box(capacityName).hasSelectedText());
        EXPECT_EQ(box(capacityName).cursorPosition(), 2);
        press(Qt::Key_Escape);
    });
}

TEST_F(CapDialog, tabFollowsTheReadingOrder)
{
    show([&] {
        EXPECT_EQ(tabOrder(), (QStringList{capacityName, currentName, u"cmdOK"_s, u"cmdCancel"_s}));
        press(Qt::Key_Escape);
    });
}

QStringList captions(frmCap &dialog)
{
    return {dialog.windowTitle(), control<QLabel>(dialog, u"Label1(0)"_s).text(),
        control<QLabel>(dialog, u"Label1(1)"_s).text(), control<QPushButton>(dialog, u"cmdOK"_s).text(),
        control<QPushButton>(dialog, u"cmdCancel"_s).text()};
}

TEST_F(CapDialog, hasEnglishCaptions)
{
    show([&] {
        EXPECT_EQ(captions(dialog),
            (QStringList{u"Add capacity"_s, u"&VFD capacity:"_s, u"Rated &current:"_s, u"OK"_s, u"CANCEL"_s}));
        press(Qt::Key_Escape);
    });
}

TEST_F(CapDialog, hasJapaneseCaptions)
{
    useJapanese();
    show([&] {
        EXPECT_EQ(captions(dialog),
            (QStringList{u"容量追加"_s, u"ｲﾝﾊﾞｰﾀ容量(&V):"_s, u"定格電流(&C):"_s, u"OK"_s, u"ｷｬﾝｾﾙ"_s}));
        press(Qt::Key_Escape);
    });
}

} // namespace
