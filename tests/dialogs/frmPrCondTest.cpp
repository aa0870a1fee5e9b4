#include "dialogs/frmPrCond.h"

#include "document/DocumentTables.h"
#include "platform/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString mixedText = u"OP/A1,79=1-3,10/5,MODE=1"_s;

/// A dialog with what a call of it gave.
class CondDialog : public testing::Test
{
protected:
    void SetUp() override { useEnglish(); }

    /// Opens the dialog on a text and its count, runs act in it and returns its result.
    bool show(
        const QString &openedText, qint16 openedCount, const std::function<void()> &act, const QString &pr = u"79"_s)
    {
        text = openedText;
        count = openedCount;
        whileShown(dialog, act);
        return dialog.ShowPrCond(pr, count, text);
    }

    SpreadGrid &grid(int kind) { return control<SpreadGrid>(dialog, u"vaspdCond(%1)"_s.arg(kind)); }
    QStringList rows(int kind) { return rowsOf(grid(kind)); }
    QString label(const QString &name) { return control<QLabel>(dialog, name).text(); }
    bool canDelete(int kind) { return control<QPushButton>(dialog, u"cmdDell(%1)"_s.arg(kind)).isEnabled(); }
    void add(int kind) { click(dialog, u"cmdAdd(%1)"_s.arg(kind)); }
    void remove(int kind) { click(dialog, u"cmdDell(%1)"_s.arg(kind)); }
    void ok() { click(dialog, u"cmdOK"_s); }
    void cancel() { click(dialog, u"cmdCancel"_s); }

    frmPrCond dialog;
    qint16 count = 0;
    QString text;
};

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

TEST_F(CondDialog, newRowsShowTheirDefaults)
{
    EXPECT_TRUE(show(u""_s, 0, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            add(kind);
            EXPECT_TRUE(canDelete(kind));
        }
        EXPECT_EQ(rows(0), QStringList{u"|=||"_s});
        EXPECT_EQ(rows(1), QStringList{u"=|EXT"_s});
        EXPECT_EQ(rows(2), QStringList{u"=|"_s});
        EXPECT_EQ(label(u"lblCount(1)"_s), u"0"_s);
        ok();
    }));
    // Only the mode counts untouched.
    EXPECT_EQ(text, u"MODE=0"_s);
    EXPECT_EQ(count, 1);
}

TEST_F(CondDialog, rowsAreAddedAtTheEnd)
{
    show(mixedText, 4, [&] {
        add(0);
        EXPECT_EQ(rows(0), (QStringList{u"79|=|1|3"_s, u"10|<>|5|"_s, u"|=||"_s}));
        cancel();
    });
}

TEST_F(CondDialog, typedRowsAreWritten)
{
    EXPECT_TRUE(show(u""_s, 0, [&] {
        add(0);
        enterIntoCell(grid(0), 1, 1, u"160"_s);
        enterIntoCell(grid(0), 3, 1, u"9"_s);
        enterIntoCell(grid(0), 4, 1, u"10"_s);
        add(2);
        enterIntoCell(grid(2), 2, 1, u"A-1"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=A-1,160=9-10"_s);
    EXPECT_EQ(count, 2);
}

TEST_F(CondDialog, aRowWithoutAValueIsDropped)
{
    EXPECT_FALSE(show(u"10=1"_s, 1, [&] {
        add(0);
        enterIntoCell(grid(0), 1, 2, u"79"_s);
        add(0);
        ok();
    }));
    EXPECT_EQ(text, u"10=1"_s);
}

TEST_F(CondDialog, valuesBeyondTheColumnsLimitsCannotBeTyped)
{
    show(u"10=1-2"_s, 1, [&] {
        enterIntoCell(grid(0), 1, 1, u"1000"_s);
        press(Qt::Key_Escape); // a refused edit may still be open
        EXPECT_NE(grid(0).text(1, 1), u"1000"_s);
        cancel();
    });
}

TEST_F(CondDialog, hasTheColumnsCellTypes)
{
    show(u""_s, 0, [&] {
        EXPECT_EQ(grid(0).cellType(1, -1), CellType::integer(0, 999));
        EXPECT_EQ(grid(0).cellType(3, -1), CellType::integer(0, 32767));
        EXPECT_EQ(grid(0).cellType(4, -1), CellType::integer(0, 32767));
        const CellType relation = CellType::comboBox({u"="_s, u"<>"_s}, u"="_s);
        EXPECT_EQ(grid(0).cellType(2, -1), relation);
        EXPECT_EQ(grid(1).cellType(1, -1), relation);
        EXPECT_EQ(grid(2).cellType(1, -1), relation);
        const CellType mode = grid(1).cellType(2, -1);
        EXPECT_EQ(mode.kind, CellType::Kind::ComboBox);
        EXPECT_EQ(mode.items,
            (QStringList{u"EXT"_s, u"PU"_s, u"EXT JOG"_s, u"PU JOG"_s, u"LNK"_s, u"PU+EXT"_s, u"TIME"_s, u"SP"_s}));
        EXPECT_EQ(grid(2).cellType(2, -1), CellType::text());
        cancel();
    });
}

TEST_F(CondDialog, hasTheColumnsHeadings)
{
    const QList<QStringList> headings{
        {u"Pr"_s, u"=/<> "_s, u"Cond1"_s, u"Cond2"_s}, {u"=/<> "_s, u"Op mode"_s}, {u"=/<> "_s, u"Option"_s}};
    show(u""_s, 0, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            ASSERT_EQ(grid(kind).columnCount(), headings[kind].size());
            for (int column = 1; column <= grid(kind).columnCount(); ++column) {
                EXPECT_EQ(grid(kind).text(column, 0), headings[kind][column - 1]);
            }
        }
        cancel();
    });
}

TEST_F(CondDialog, relationsAndModesAreChosenFromTheirLists)
{
    EXPECT_TRUE(show(u"OP=A,79=1,MODE=0"_s, 3, [&] {
        for (const auto &[kind, column] : std::initializer_list<std::pair<int, int>>{{0, 2}, {1, 1}, {1, 2}, {2, 1}}) {
            clickCell(grid(kind), column, 1);
            type(kind == 1 && column == 2 ? u"p"_s : u"<"_s);
            press(Qt::Key_Return);
        }
        EXPECT_EQ(rows(0) + rows(1) + rows(2), (QStringList{u"79|<>|1|"_s, u"<>|PU"_s, u"<>|A"_s}));
        ok();
    }));
    EXPECT_EQ(text, u"OP/A,79/1,MODE/1"_s);
}

TEST_F(CondDialog, deleteRemovesTheActiveRow)
{
    EXPECT_TRUE(show(u"OP=A,OP=B,OP=C,1=1,2=2-3,3=3,MODE=1,MODE=2,MODE=3"_s, 9, [&] {
        for (int kind = 0; kind < 3; ++kind) {
            clickCell(grid(kind), 1, 2);
            remove(kind);
        }
        EXPECT_EQ(rows(0), (QStringList{u"1|=|1|"_s, u"3|=|3|"_s}));
        EXPECT_EQ(rows(1), (QStringList{u"=|PU"_s, u"=|PU JOG"_s}));
        EXPECT_EQ(rows(2), (QStringList{u"=|A"_s, u"=|C"_s}));
        EXPECT_EQ(label(u"lblCount(1)"_s), u"9"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=A,OP=C,1=1,3=3,MODE=1,MODE=3"_s);
    EXPECT_EQ(count, 6);
}

TEST_F(CondDialog, deleteRemovesTheLastRowWhenThatIsActive)
{
    show(u"1=1,2=2,3=3"_s, 3, [&] {
        clickCell(grid(0), 4, 3);
        remove(0);
        EXPECT_EQ(rows(0), (QStringList{u"1|=|1|"_s, u"2|=|2|"_s}));
        remove(0);
        EXPECT_EQ(rows(0).size(), 1);
        EXPECT_TRUE(canDelete(0));
        remove(0);
        EXPECT_EQ(rows(0).size(), 0);
        EXPECT_FALSE(canDelete(0));
        cancel();
    });
}

TEST_F(CondDialog, deleteWorksWithoutAClickIntoTheGrid)
{
    show(u"1=1,2=2"_s, 2, [&] {
        remove(0);
        EXPECT_EQ(rows(0), QStringList{u"2|=|2|"_s});
        add(1);
        remove(1);
        EXPECT_EQ(rows(1).size(), 0);
        EXPECT_FALSE(canDelete(1));
        cancel();
    });
}

TEST_F(CondDialog, rowsAddedAfterADeletionAreEmpty)
{
    show(u"79=1-3"_s, 1, [&] {
        remove(0);
        add(0);
        EXPECT_EQ(rows(0), QStringList{u"|=||"_s});
        cancel();
    });
}

TEST_F(CondDialog, anEditSortsTheParametersByNumber)
{
    EXPECT_TRUE(show(u"100=1,20=2-4,9=3"_s, 3, [&] {
        EXPECT_EQ(rows(0), (QStringList{u"100|=|1|"_s, u"20|=|2|4"_s, u"9|=|3|"_s}));
        enterIntoCell(grid(0), 3, 1, u"7"_s);
        EXPECT_EQ(rows(0), (QStringList{u"9|=|3|"_s, u"20|=|2|4"_s, u"100|=|7|"_s}));
        ok();
    }));
    EXPECT_EQ(text, u"9=3,20=2-4,100=7"_s);
}

TEST_F(CondDialog, parametersAreNotSortedWithoutAnEdit)
{
    EXPECT_FALSE(show(u"100=1,20=2"_s, 2, [&] { ok(); }));
}

TEST_F(CondDialog, modesAndOptionsAreNotSorted)
{
    EXPECT_TRUE(show(u"OP=B,OP=C,MODE=3,MODE=1"_s, 4, [&] {
        enterIntoCell(grid(2), 2, 2, u"A"_s);
        enterIntoCell(grid(1), 1, 2, u"<"_s);
        ok();
    }));
    EXPECT_EQ(text, u"OP=B,OP=A,MODE=3,MODE/1"_s);
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

TEST_F(CondDialog, addAndDeleteTakeAnEditThatIsStillOpen)
{
    show(u"OP=A,OP=B"_s, 2, [&] {
        typeIntoCell(grid(2), 2, 1, u"C"_s);
        add(2);
        EXPECT_EQ(rows(2), (QStringList{u"=|C"_s, u"=|B"_s, u"=|"_s}));
        typeIntoCell(grid(2), 2, 2, u"D"_s);
        remove(2);
        EXPECT_EQ(rows(2), (QStringList{u"=|C"_s, u"=|"_s}));
        cancel();
    });
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

TEST_F(CondDialog, buttonsPressedWithoutTheMouseTakeAnOpenEditToo)
{
    show(u"OP=A"_s, 1, [&] {
        typeIntoCell(grid(2), 2, 1, u"B"_s);
        control<QPushButton>(dialog, u"cmdAdd(2)"_s).click(); // as assistive tools do, without moving the focus
        EXPECT_EQ(rows(2), (QStringList{u"=|B"_s, u"=|"_s}));
        typeIntoCell(grid(2), 2, 2, u"C"_s);
        control<QPushButton>(dialog, u"cmdDell(2)"_s).click();
        EXPECT_EQ(rows(2), QStringList{u"=|B"_s});
        cancel();
    });
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

TEST_F(CondDialog, theSharedConditionsAreEmptiedBeforeAndAfter)
{
    PrConditions = {{u"1"_s, 0, u"1"_s, u""_s}};
    EXPECT_FALSE(show(u"79=1"_s, 1, [&] {
        EXPECT_EQ(rows(0), QStringList{u"79|=|1|"_s});
        ok();
    }));
    EXPECT_TRUE(PrConditions.isEmpty());
}

TEST_F(CondDialog, theGridsStartAnewAtEveryOpening)
{
    show(mixedText, 4, [&] {
        add(0);
        cancel();
    });
    show(u"OP=B"_s, 1, [&] {
        EXPECT_EQ(rows(0) + rows(1) + rows(2), QStringList{u"=|B"_s});
        EXPECT_FALSE(canDelete(0));
        cancel();
    });
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

TEST_F(CondDialog, theSharedAccessKeysGoFromButtonToButton)
{
    show(mixedText, 4, [&] {
        QStringList visited;
        for (int i = 0; i < 3; ++i) {
            press(Qt::Key_A, Qt::AltModifier);
            visited << focusedName();
        }
        visited.sort();
        EXPECT_EQ(visited, (QStringList{u"cmdAdd(0)"_s, u"cmdAdd(1)"_s, u"cmdAdd(2)"_s}));
        const int kind = focusedName().at(7).digitValue();
        const auto before = rows(kind).size();
        press(Qt::Key_Space);
        EXPECT_EQ(rows(kind).size(), before + 1);
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
