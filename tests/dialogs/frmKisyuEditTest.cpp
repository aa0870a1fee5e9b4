#include "dialogs/frmKisyuEdit.h"

#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/MachineDialog.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

TEST_F(MachineDialog, showsTheDocument)
{
    EXPECT_FALSE(show([&] {
        EXPECT_EQ(box(u"txtKisyuName"_s).text(), u"XT200-0.4K"_s);
        EXPECT_EQ(box(u"txtKigo"_s).text(), u"XT"_s);
        EXPECT_EQ(box(u"txtV"_s).text(), u"200"_s);
        EXPECT_EQ(box(u"txtCode"_s).text(), u"1A"_s);
        EXPECT_EQ(box(u"txtOption"_s).text(), u"A1,B"_s);
        EXPECT_EQ(rows(), (QStringList{u"0.4|2.5"_s, u"3.7|16.5"_s, u"11|46"_s}));
        cancel();
    }));
}

TEST_F(MachineDialog, okWithoutAnEditWritesNothing)
{
    // Everything here would be stored otherwise after an edit.
    info().Capacity = {u"5.50"_s, u"x"_s};
    info().ICapacity = {u"1,5"_s, u"2"_s};
    info().Option = {u"xx"_s, u"A"_s};
    const MachineInfo before = info();
    EXPECT_FALSE(show([&] { ok(); }));
    EXPECT_EQ(info(), before);
}

TEST_F(MachineDialog, okStoresEveryBox)
{
    EXPECT_TRUE(show([&] {
        retype(u"txtKisyuName"_s, u" New name "_s);
        retype(u"txtKigo"_s, u" type, any "_s);
        retype(u"txtV"_s, u"400"_s);
        retype(u"txtCode"_s, u"ff"_s);
        retype(u"txtOption"_s, u",A,,B,"_s);
        ok();
    }));
    MachineInfo expected = sampleMachine();
    expected.Name = u" New name "_s;
    expected.TypeCode = u" type, any "_s;
    expected.VCapacity = u"400"_s;
    expected.Code = u"ff"_s;
    expected.Option = {u"A"_s, u"B"_s};
    EXPECT_EQ(info(), expected);
}

class MachineBox : public MachineDialog, public testing::WithParamInterface<QString>
{
};

TEST_P(MachineBox, aTypedCharacterCountsAsAChange)
{
    EXPECT_TRUE(show([&] {
        box(GetParam()).setFocus();
        press(Qt::Key_End);
        press(Qt::Key_1);
        ok();
    }));
}

TEST_P(MachineBox, aChangeThatWasUndoneCountsToo)
{
    EXPECT_TRUE(show([&] {
        box(GetParam()).setFocus();
        press(Qt::Key_End);
        press(Qt::Key_1);
        press(Qt::Key_Backspace);
        ok();
    }));
    EXPECT_EQ(info(), sampleMachine());
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, MachineBox, testing::Values(u"txtKisyuName"_s, u"txtKigo"_s, u"txtV"_s, u"txtCode"_s, u"txtOption"_s));

TEST_F(MachineDialog, noOptionIsStoredAsItsMark)
{
    EXPECT_TRUE(show([&] {
        retype(u"txtOption"_s, u"  "_s);
        ok();
    }));
    EXPECT_EQ(info().Option, QStringList{u"xx"_s});
    show([&] {
        EXPECT_EQ(box(u"txtOption"_s).text(), u""_s);
        cancel();
    });
}

struct Invalid
{
    QString name;
    QString code;
    QString voltage;
    QString focus;
};

class MachineRefusal : public MachineDialog, public testing::WithParamInterface<Invalid>
{
};

TEST_P(MachineRefusal, entersTheFirstInvalidBoxAndStaysOpen)
{
    EXPECT_FALSE(show([&] {
        retype(u"txtKisyuName"_s, GetParam().name);
        retype(u"txtCode"_s, GetParam().code);
        retype(u"txtV"_s, GetParam().voltage);
        ok();
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(focusedName(), GetParam().focus);
        press(Qt::Key_Escape);
    }));
    EXPECT_EQ(info(), sampleMachine());
}

INSTANTIATE_TEST_SUITE_P(Boxes, MachineRefusal,
    testing::ValuesIn(std::vector<Invalid>{
        {u""_s, u"1A"_s, u"200"_s, u"txtKisyuName"_s},
        {u"   "_s, u""_s, u""_s, u"txtKisyuName"_s},
        {u"N"_s, u"1G"_s, u"200"_s, u"txtCode"_s},
        {u"N"_s, u""_s, u"x"_s, u"txtCode"_s},
        {u"N"_s, u"1A"_s, u""_s, u"txtV"_s},
        {u"N"_s, u"1A"_s, u"2A"_s, u"txtV"_s},
    }));

TEST_F(MachineDialog, anInvalidBoxRefusesOkWithoutAnEditToo)
{
    info().Code = u"1G"_s;
    EXPECT_FALSE(show([&] {
        ok();
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(focusedName(), u"txtCode"_s);
        cancel();
    }));
}

TEST_F(MachineDialog, okAfterARefusalStores)
{
    EXPECT_TRUE(show([&] {
        retype(u"txtCode"_s, u"1G"_s);
        press(Qt::Key_Return);
        retype(u"txtCode"_s, u"1F"_s);
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(info().Code, u"1F"_s);
}

class MachineCancel : public MachineDialog, public testing::WithParamInterface<std::function<void(frmKisyuEdit &)>>
{
};

TEST_P(MachineCancel, storesNothing)
{
    EXPECT_FALSE(show([&] {
        retype(u"txtKisyuName"_s, u"Other"_s);
        GetParam()(*dialog);
    }));
    EXPECT_EQ(info(), sampleMachine());
}

INSTANTIATE_TEST_SUITE_P(Ways, MachineCancel,
    testing::Values([](frmKisyuEdit &dialog) { click(dialog, u"cmdCancel"_s); },
        [](frmKisyuEdit &) { press(Qt::Key_Escape); }, [](frmKisyuEdit &dialog) { dialog.close(); }));

TEST_F(MachineDialog, onlyItsDocumentIsTouched)
{
    growDocumentTables(3);
    MachineInfos[1] = MachineInfos[3] = sampleMachine();
    show([&] {
        retype(u"txtKisyuName"_s, u"Other"_s);
        ok();
    });
    EXPECT_EQ(MachineInfos[1], sampleMachine());
    EXPECT_EQ(MachineInfos[3], sampleMachine());
    EXPECT_FALSE(DocFlags[1].changed || DocFlags[3].changed);
}

TEST_F(MachineDialog, enteringABoxSelectsItsTextExceptTheOptions)
{
    show([&] {
        for (const QString &name : {u"txtKisyuName"_s, u"txtKigo"_s, u"txtV"_s, u"txtCode"_s}) {
            EXPECT_EQ(focusedName(), name);
            EXPECT_EQ(box(name).selectedText(), box(name).text());
            press(Qt::Key_Tab);
        }
        for (const QString &name : {u"txtKigo"_s, u"txtOption"_s, u"txtV"_s}) {
            QTest::mouseClick(&box(name), Qt::LeftButton);
            EXPECT_EQ(box(name).hasSelectedText(), name != u"txtOption"_s) << name.toStdString();
        }
        cancel();
    });
}

struct FrameKey
{
    Qt::Key key;
    QString focus;
};

class MachineFrameKey : public MachineDialog, public testing::WithParamInterface<FrameKey>
{
};

TEST_P(MachineFrameKey, entersTheFramesBox)
{
    show([&] {
        press(GetParam().key, Qt::AltModifier);
        EXPECT_EQ(focusedName(), GetParam().focus);
        cancel();
    });
}

INSTANTIATE_TEST_SUITE_P(Frames, MachineFrameKey,
    testing::ValuesIn(std::vector<FrameKey>{
        {Qt::Key_T, u"txtKisyuName"_s},
        {Qt::Key_V, u"txtV"_s},
        {Qt::Key_M, u"txtCode"_s},
        {Qt::Key_C, u"vaSpread1"_s},
        {Qt::Key_P, u"txtOption"_s},
    }));

TEST_F(MachineDialog, tabFollowsTheReadingOrder)
{
    show([&] {
        EXPECT_EQ(tabOrder(),
            (QStringList{u"txtKisyuName"_s, u"txtKigo"_s, u"txtV"_s, u"txtCode"_s, u"vaSpread1"_s, u"cmdAdd"_s,
                u"cmdDel"_s, u"txtOption"_s, u"cmdOK"_s, u"cmdCancel"_s, u"cmdHelp"_s}));
        cancel();
    });
}

QStringList captions(const frmKisyuEdit &dialog, const SpreadGrid &grid)
{
    QStringList texts{dialog.windowTitle()};
    for (const QString &name : {u"fraType"_s, u"fraVoltage"_s, u"fraCode"_s, u"fraCap"_s, u"fraOption"_s}) {
        texts << control<QGroupBox>(dialog, name).title();
    }
    for (const QString &name : {u"cmdAdd"_s, u"cmdDel"_s, u"cmdOK"_s, u"cmdCancel"_s, u"cmdHelp"_s}) {
        texts << control<QPushButton>(dialog, name).text();
    }
    return texts << grid.text(1, 0) << grid.text(2, 0);
}

TEST_F(MachineDialog, hasEnglishCaptions)
{
    show([&] {
        EXPECT_EQ(captions(*dialog, grid()),
            (QStringList{u"Machine Infomation"_s, u"&Type:"_s, u"&Voltage Code:"_s, u"&Machine Code:"_s,
                u"&Capacity:"_s, u"&Pulg_in Option:"_s, u"&Add"_s, u"&Del"_s, u"OK"_s, u"CANCEL"_s, u"&Help"_s,
                u"VFD capacity[kW]"_s, u"Rated current[A]"_s}));
        cancel();
    });
}

TEST_F(MachineDialog, hasJapaneseCaptions)
{
    useJapanese();
    show([&] {
        EXPECT_EQ(captions(*dialog, grid()),
            (QStringList{u"機種情報編集"_s, u"ｲﾝﾊﾞｰﾀ形名(&T):"_s, u"電圧ｺｰﾄﾞ(&V):"_s, u"機種ｺｰﾄﾞ(&M):"_s,
                u"定格(&C):"_s, u"内蔵ｵﾌﾟｼｮﾝ(&P):"_s, u"追加(&A)"_s, u"削除(&D)"_s, u"OK"_s, u"ｷｬﾝｾﾙ"_s, u"ﾍﾙﾌﾟ(&H)"_s,
                u"適用ﾓｰﾀ容量[kW]"_s, u"定格電流[A]"_s}));
        cancel();
    });
}

} // namespace
