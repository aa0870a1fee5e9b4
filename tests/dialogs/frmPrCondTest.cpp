#include "dialogs/frmPrCond.h"

#include "document/DocumentTables.h"
#include "tests/dialogs/CondDialog.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

TEST_F(CondDialog, showsEachKindInItsGrid)
{
    show(u"MODE/7,OP/A1,79=1-3,OP=B,10/5,MODE=1"_s, 6, [&] {
        EXPECT_EQ(rows(0), (QStringList{u"79|=|1|3"_s, u"10|<>|5|"_s}));
        EXPECT_EQ(rows(1), (QStringList{u"<>|SP"_s, u"=|PU"_s}));
        EXPECT_EQ(rows(2), (QStringList{u"<>|A1"_s, u"=|B"_s}));
        EXPECT_TRUE(canDelete(0) && canDelete(1) && canDelete(2));
        EXPECT_EQ(label(u"lblCount(1)"_s), u"6"_s);
        cancel();
    });
}

TEST_F(CondDialog, showsTheParameterNumber)
{
    show(u""_s, 0, [&] {
        EXPECT_EQ(label(u"lblPr"_s), u"Pr.79"_s);
        cancel();
    });
    show(
        u""_s, 0,
        [&] {
            EXPECT_EQ(label(u"lblPr"_s), u""_s);
            cancel();
        },
        u""_s);
}

TEST_F(CondDialog, hasEmptyGridsWithoutConditions)
{
    EXPECT_FALSE(show(u""_s, 0, [&] {
        EXPECT_EQ(rows(0) + rows(1) + rows(2), QStringList());
        EXPECT_FALSE(canDelete(0) || canDelete(1) || canDelete(2));
        EXPECT_EQ(label(u"lblCount(1)"_s), u"0"_s);
        ok();
    }));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(text, u""_s);
}

TEST_F(CondDialog, canDeleteOnlyWhereThereAreRows)
{
    show(u"MODE=1"_s, 1, [&] {
        EXPECT_FALSE(canDelete(0));
        EXPECT_TRUE(canDelete(1));
        EXPECT_FALSE(canDelete(2));
        cancel();
    });
}

TEST_F(CondDialog, theParsedCountIsShownWhateverTheRowSays)
{
    EXPECT_TRUE(show(u"79=1,X=2"_s, 5, [&] {
        EXPECT_EQ(label(u"lblCount(1)"_s), u"1"_s);
        ok();
    }));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(text, u"79=1"_s);
}

TEST_F(CondDialog, okWithoutAChangeGivesFalse)
{
    EXPECT_FALSE(show(mixedText, 4, [&] { ok(); }));
    EXPECT_EQ(text, mixedText);
    EXPECT_EQ(count, 4);
}

TEST_F(CondDialog, aCountThatDiffersAloneIsAChange)
{
    EXPECT_TRUE(show(mixedText, 3, [&] { ok(); }));
    EXPECT_EQ(count, 4);
    EXPECT_EQ(text, mixedText);
}

TEST_F(CondDialog, aTextInAnotherOrderChangesOnOk)
{
    EXPECT_TRUE(show(u"MODE=1,79=1-3,OP/A1"_s, 3, [&] { ok(); }));
    EXPECT_EQ(text, u"OP/A1,79=1-3,MODE=1"_s);
    EXPECT_EQ(count, 3);
}

TEST_F(CondDialog, aRangeIsWrittenAsItStandsInTheGrid)
{
    EXPECT_TRUE(show(u"160=9-10"_s, 1, [&] {
        EXPECT_EQ(rows(0), QStringList{u"160|=|10|9"_s});
        ok();
    }));
    EXPECT_EQ(text, u"160=10-9"_s);
}

TEST_F(CondDialog, okTakesAnEditThatIsStillOpen)
{
    EXPECT_TRUE(show(u"OP=A,100=1,20=2"_s, 3, [&] {
        typeIntoCell(grid(0), 3, 1, u"7"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=A,20=2,100=7"_s);
}

TEST_F(CondDialog, acceptingTakesAnEditThatIsStillOpen)
{
    EXPECT_TRUE(show(u"OP=A"_s, 1, [&] {
        typeIntoCell(grid(2), 2, 1, u"B"_s);
        dialog.accept(); // as assistive tools do, without moving the focus
    }));
    EXPECT_EQ(text, u"OP=B"_s);
}

TEST_F(CondDialog, deletingEverythingGivesNoConditions)
{
    EXPECT_TRUE(show(u"OP=A"_s, 1, [&] {
        remove(2);
        EXPECT_EQ(label(u"lblCount(1)"_s), u"1"_s);
        ok();
    }));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(text, u""_s);
}

TEST_F(CondDialog, deletingEverythingGivesTheTextOfTheLastOkThatMadeOne)
{
    EXPECT_FALSE(show(u"10=1"_s, 1, [&] { ok(); }));
    show(u"20=1"_s, 1, [&] { cancel(); });
    EXPECT_TRUE(show(u"OP=A"_s, 1, [&] {
        remove(2);
        ok();
    }));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(text, u"10=1"_s);
}

class CondCancel : public CondDialog, public testing::WithParamInterface<std::function<void(frmPrCond &)>>
{
};

TEST_P(CondCancel, leavesCountAndTextAlone)
{
    EXPECT_FALSE(show(u"MODE=1,OP=A"_s, 7, [&] {
        remove(1);
        GetParam()(dialog);
    }));
    EXPECT_EQ(count, 7);
    EXPECT_EQ(text, u"MODE=1,OP=A"_s);
    EXPECT_TRUE(PrConditions.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ways, CondCancel,
    testing::Values([](frmPrCond &dialog) { click(dialog, u"cmdCancel"_s); },
        [](frmPrCond &) { press(Qt::Key_Escape); }, [](frmPrCond &dialog) { dialog.close(); }));

TEST_F(CondDialog, escapeInAGridCancels)
{
    EXPECT_FALSE(show(u"MODE=1,OP=A"_s, 2, [&] {
        clickCell(grid(2), 1, 1);
        press(Qt::Key_Escape);
    }));
}

TEST_F(CondDialog, escapeInAnEditEndsTheEditOnly)
{
    show(u"OP=A"_s, 1, [&] {
        typeIntoCell(grid(2), 2, 1, u"B"_s);
        press(Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(rows(2), QStringList{u"=|A"_s});
        press(Qt::Key_Escape);
    });
}

TEST_F(CondDialog, enterInAGridIsOk)
{
    EXPECT_TRUE(show(u"MODE=1,OP=A"_s, 2, [&] {
        clickCell(grid(2), 1, 1);
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(text, u"OP=A,MODE=1"_s);
}

TEST_F(CondDialog, leavesTheSharedConditionsAlone)
{
    const QList<PrCondition> shared{{u"1"_s, 0, u"1"_s, u""_s}};
    PrConditions = shared;
    EXPECT_FALSE(show(u"79=1"_s, 1, [&] {
        EXPECT_EQ(rows(0), QStringList{u"79|=|1|"_s});
        ok();
    }));
    EXPECT_EQ(PrConditions, shared);
    PrConditions.clear();
}

TEST_F(CondDialog, tabFollowsTheReadingOrder)
{
    show(mixedText, 4, [&] {
        EXPECT_EQ(tabOrder(),
            (QStringList{u"vaspdCond(0)"_s, u"cmdAdd(0)"_s, u"cmdDell(0)"_s, u"vaspdCond(1)"_s, u"cmdAdd(1)"_s,
                u"cmdDell(1)"_s, u"vaspdCond(2)"_s, u"cmdAdd(2)"_s, u"cmdDell(2)"_s, u"cmdOK"_s, u"cmdCancel"_s,
                u"cmdHelp"_s}));
        cancel();
    });
}

QStringList captions(frmPrCond &dialog)
{
    QStringList texts{dialog.windowTitle(), control<QLabel>(dialog, u"lblCount(0)"_s).text()};
    for (int kind = 0; kind < 3; ++kind) {
        texts << control<QGroupBox>(dialog, u"Frame1(%1)"_s.arg(kind)).title()
              << control<QPushButton>(dialog, u"cmdAdd(%1)"_s.arg(kind)).text()
              << control<QPushButton>(dialog, u"cmdDell(%1)"_s.arg(kind)).text();
    }
    return texts;
}

TEST_F(CondDialog, hasEnglishCaptions)
{
    show(u""_s, 0, [&] {
        EXPECT_EQ(captions(dialog),
            (QStringList{u"Pr Read Condition"_s, u"Condition Count"_s, u"Pr Condition"_s, u"&Add"_s, u"&Del"_s,
                u"Op Mode Cond."_s, u"&Add"_s, u"&Del"_s, u"Option Cond."_s, u"&Add"_s, u"&Del"_s}));
        cancel();
    });
}

TEST_F(CondDialog, hasJapaneseCaptions)
{
    useJapanese();
    show(u""_s, 0, [&] {
        EXPECT_EQ(captions(dialog),
            (QStringList{u"ﾊﾟﾗﾒｰﾀ読出し条件"_s, u"条件数:"_s, u"ﾊﾟﾗﾒｰﾀ条件:"_s, u"追加(&A)"_s, u"削除(&D)"_s,
                u"運転ﾓｰﾄﾞ条件:"_s, u"追加(&A)"_s, u"削除(&D)"_s, u"ｵﾌﾟｼｮﾝ条件:"_s, u"追加(&A)"_s, u"削除(&D)"_s}));
        cancel();
    });
}

} // namespace
