#include "dialogs/frmFunc.h"

#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString normalFile = u"C:\\data\\xt200.inv"_s;
const QString kqm3File = u"C:\\data\\kqm3xyz.inv"_s;

QString boxName(int group)
{
    return u"chkFunc(%1)"_s.arg(group);
}

/// A dialog with what a call of it gave.
class FuncDialog : public testing::Test
{
protected:
    void SetUp() override { useEnglish(); }

    /// Opens the dialog on code, runs act in it and returns its result.
    bool show(qint16 opened, const QString &file, const std::function<void()> &act, const QString &pr = u"79"_s)
    {
        code = opened;
        whileShown(dialog, act);
        return dialog.ShowFuncCode(pr, code, file);
    }

    QCheckBox &box(int group) { return control<QCheckBox>(dialog, boxName(group)); }
    QString label(const QString &name) { return control<QLabel>(dialog, name).text(); }
    QString shownCode() { return label(u"lblFuncCode(1)"_s); }
    void ok() { click(dialog, u"cmdOK"_s); }
    void cancel() { click(dialog, u"cmdCancel"_s); }

    /// One character per box: "X" ticked, "." not ticked, "-" disabled, " " not shown.
    QString boxes()
    {
        QString shown;
        for (int group = 0; group < FunctionGroupCount; ++group) {
            const QCheckBox &one = box(group);
            shown += !one.isVisible() ? u' ' : !one.isEnabled() ? u'-' : one.isChecked() ? u'X' : u'.';
        }
        return shown;
    }

    frmFunc dialog;
    qint16 code = 0;
};

TEST_F(FuncDialog, showsTheParameterNumber)
{
    show(0, normalFile, [&] {
        EXPECT_EQ(label(u"lblPr"_s), u"Pr.79"_s);
        cancel();
    });
}

TEST_F(FuncDialog, showsNoNumberForAnEmptyOne)
{
    show(
        0, normalFile,
        [&] {
            EXPECT_EQ(label(u"lblPr"_s), u""_s);
            cancel();
        },
        u""_s);
}

TEST_F(FuncDialog, showsCodeZeroWithoutATick)
{
    EXPECT_FALSE(show(0, normalFile, [&] {
        EXPECT_EQ(shownCode(), u"0000"_s);
        EXPECT_EQ(boxes(), u"............   "_s);
        ok();
    }));
    EXPECT_EQ(code, 0);
}

TEST_F(FuncDialog, okWithoutAChangeGivesFalse)
{
    EXPECT_FALSE(show(0xFF, normalFile, [&] {
        EXPECT_EQ(boxes(), u"XXXXXXXX....   "_s);
        ok();
    }));
    EXPECT_EQ(code, 0xFF);
}

TEST_F(FuncDialog, okAfterAChangeGivesTheNewCode)
{
    EXPECT_TRUE(show(5, normalFile, [&] {
        click(dialog, boxName(11));
        click(dialog, boxName(0));
        ok();
    }));
    EXPECT_EQ(code, 0x0804);
}

TEST_F(FuncDialog, okAfterAChangeThatWasUndoneGivesFalse)
{
    EXPECT_FALSE(show(5, normalFile, [&] {
        click(dialog, boxName(3));
        click(dialog, boxName(3));
        ok();
    }));
    EXPECT_EQ(code, 5);
}

TEST_F(FuncDialog, everyClickShowsTheNewCode)
{
    show(0, normalFile, [&] {
        click(dialog, boxName(0));
        EXPECT_EQ(shownCode(), u"0001"_s);
        click(dialog, boxName(11));
        EXPECT_EQ(shownCode(), u"0801"_s);
        click(dialog, boxName(0));
        EXPECT_EQ(shownCode(), u"0800"_s);
        cancel();
    });
}

TEST_F(FuncDialog, keysTickBoxesToo)
{
    EXPECT_TRUE(show(0, normalFile, [&] {
        EXPECT_EQ(focusedName(), boxName(0));
        press(Qt::Key_Space);
        EXPECT_EQ(shownCode(), u"0001"_s);
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(code, 1);
}

struct AccessKey
{
    QString file;
    Qt::Key key;
    int group;
};

class FuncAccessKey : public FuncDialog, public testing::WithParamInterface<AccessKey>
{
};

TEST_P(FuncAccessKey, ticksTheBox)
{
    EXPECT_TRUE(show(0, GetParam().file, [&] {
        press(GetParam().key, Qt::AltModifier);
        EXPECT_TRUE(box(GetParam().group).isChecked());
        EXPECT_EQ(focusedName(), boxName(GetParam().group));
        ok();
    }));
    EXPECT_EQ(code, 1 << GetParam().group);
}

INSTANTIATE_TEST_SUITE_P(Normal, FuncAccessKey,
    testing::ValuesIn(std::vector<AccessKey>{
        {normalFile, Qt::Key_T, 0},
        {normalFile, Qt::Key_F, 1},
        {normalFile, Qt::Key_D, 2},
        {normalFile, Qt::Key_P, 3},
        {normalFile, Qt::Key_M, 4},
        {normalFile, Qt::Key_B, 5},
        {normalFile, Qt::Key_A, 6},
        {normalFile, Qt::Key_G, 7},
        {normalFile, Qt::Key_I, 8},
        {normalFile, Qt::Key_L, 9},
        {normalFile, Qt::Key_O, 10},
        {normalFile, Qt::Key_R, 11},
    }));

INSTANTIATE_TEST_SUITE_P(Kqm3, FuncAccessKey,
    testing::ValuesIn(std::vector<AccessKey>{
        {kqm3File, Qt::Key_T, 0},
        {kqm3File, Qt::Key_S, 1},
        {kqm3File, Qt::Key_D, 2},
        {kqm3File, Qt::Key_P, 3},
        {kqm3File, Qt::Key_M, 4},
        {kqm3File, Qt::Key_B, 5},
        {kqm3File, Qt::Key_A, 6},
        {kqm3File, Qt::Key_V, 7},
        {kqm3File, Qt::Key_L, 9},
        {kqm3File, Qt::Key_O, 10},
        {kqm3File, Qt::Key_R, 11},
        {kqm3File, Qt::Key_E, 12},
        {kqm3File, Qt::Key_Q, 13},
        {kqm3File, Qt::Key_N, 14},
    }));

TEST_F(FuncDialog, enterDoesNotOvertakeAnAccessKey)
{
    EXPECT_TRUE(show(0, normalFile, [&] {
        press(Qt::Key_T, Qt::AltModifier);
        press(Qt::Key_F, Qt::AltModifier);
        press(Qt::Key_Return);
    }));
    EXPECT_EQ(code, 3);
}

TEST_F(FuncDialog, okClearsTheBitsThatTheNormalSetHasNoBoxFor)
{
    EXPECT_TRUE(show(0x7000, normalFile, [&] {
        EXPECT_EQ(shownCode(), u"7000"_s);
        EXPECT_EQ(boxes(), u"............   "_s);
        ok();
    }));
    EXPECT_EQ(code, 0);
}

TEST_F(FuncDialog, okClearsTheBitsThatTheKqm3SetHasNoBoxFor)
{
    EXPECT_TRUE(show(0x0100, kqm3File, [&] {
        EXPECT_EQ(shownCode(), u"0100"_s);
        EXPECT_EQ(boxes(), u"........-......"_s);
        ok();
    }));
    EXPECT_EQ(code, 0);
}

TEST_F(FuncDialog, okClearsTheTopBit)
{
    EXPECT_TRUE(show(qint16(0x8001), kqm3File, [&] {
        EXPECT_EQ(shownCode(), u"8001"_s);
        EXPECT_EQ(boxes(), u"X.......-......"_s);
        ok();
    }));
    EXPECT_EQ(code, 1);
}

TEST_F(FuncDialog, aClickShowsTheCodeWithoutTheBitsThatOkClears)
{
    show(qint16(0x8000), normalFile, [&] {
        click(dialog, boxName(1));
        EXPECT_EQ(shownCode(), u"0002"_s);
        cancel();
    });
}

TEST_F(FuncDialog, kqm3FilesEditTheExtraGroups)
{
    EXPECT_TRUE(show(0x4000, kqm3File, [&] {
        EXPECT_EQ(boxes(), u"........-.....X"_s);
        click(dialog, boxName(12));
        click(dialog, boxName(13));
        ok();
    }));
    EXPECT_EQ(code, 0x7000);
}

TEST_F(FuncDialog, aDisabledBoxTakesNoClick)
{
    EXPECT_FALSE(show(0, kqm3File, [&] {
        click(dialog, boxName(8));
        EXPECT_FALSE(box(8).isChecked());
        ok();
    }));
}

TEST_F(FuncDialog, nothingStaysFromOneCallToTheNext)
{
    show(0x7EFF, kqm3File, [&] { ok(); });
    EXPECT_FALSE(show(0x0100, normalFile, [&] {
        EXPECT_EQ(boxes(), u"........X...   "_s);
        ok();
    }));
    EXPECT_FALSE(show(0x1000, kqm3File, [&] {
        EXPECT_EQ(boxes(), u"........-...X.."_s);
        EXPECT_FALSE(box(8).isChecked());
        EXPECT_EQ(focusedName(), boxName(0));
        ok();
    }));
}

class FuncCancel : public FuncDialog, public testing::WithParamInterface<std::function<void(frmFunc &)>>
{
};

TEST_P(FuncCancel, leavesTheCodeAlone)
{
    EXPECT_FALSE(show(0x7005, normalFile, [&] {
        click(dialog, boxName(1));
        GetParam()(dialog);
    }));
    EXPECT_EQ(code, 0x7005);
}

INSTANTIATE_TEST_SUITE_P(Ways, FuncCancel,
    testing::Values([](frmFunc &dialog) { click(dialog, u"cmdCancel"_s); }, [](frmFunc &) { press(Qt::Key_Escape); },
        [](frmFunc &dialog) { dialog.close(); }));

TEST_F(FuncDialog, tabFollowsTheReadingOrder)
{
    QStringList expected;
    for (int group = 0; group < 12; ++group) {
        expected << boxName(group);
    }
    expected << u"cmdOK"_s << u"cmdCancel"_s << u"cmdHelp"_s;
    show(0, normalFile, [&] {
        EXPECT_EQ(tabOrder(), expected);
        cancel();
    });
}

struct Captions
{
    void (*useLanguage)();
    QString file;
    QStringList window; ///< window, frame, label, OK, Cancel, Help
    QStringList boxes;
};

class FuncCaptions : public FuncDialog, public testing::WithParamInterface<Captions>
{
};

TEST_P(FuncCaptions, comeFromTheStringTable)
{
    GetParam().useLanguage();
    show(0, GetParam().file, [&] {
        const QStringList window{dialog.windowTitle(), control<QGroupBox>(dialog, u"Frame1"_s).title(),
            label(u"lblFuncCode(0)"_s), control<QPushButton>(dialog, u"cmdOK"_s).text(),
            control<QPushButton>(dialog, u"cmdCancel"_s).text(), control<QPushButton>(dialog, u"cmdHelp"_s).text()};
        EXPECT_EQ(window, GetParam().window);
        QStringList captions;
        for (int group = 0; group < FunctionGroupCount; ++group) {
            captions << box(group).text();
        }
        EXPECT_EQ(captions, GetParam().boxes);
        cancel();
    });
}

const QStringList englishWindow{
    u"Functional List Code"_s, u"Function:"_s, u"Func. Code:"_s, u"OK"_s, u"CANCEL"_s, u"&Help"_s};
const QStringList japaneseWindow{
    u"機能ﾘｽﾄｺｰﾄﾞ編集"_s, u"機能:"_s, u"機能ﾘｽﾄｺｰﾄﾞ:"_s, u"OK"_s, u"ｷｬﾝｾﾙ"_s, u"ﾍﾙﾌﾟ(&H)"_s};

INSTANTIATE_TEST_SUITE_P(Languages, FuncCaptions,
    testing::ValuesIn(std::vector<Captions>{
        {useEnglish, normalFile, englishWindow,
            {u"Motor &Torque"_s, u"&Freq. setting"_s, u"Acc/&Dec"_s, u"&Protect"_s, u"&Monitor"_s, u"&Brake"_s,
                u"Terminal &Alloc"_s, u"Ma&gnetic flux vector"_s, u"&Intelligent"_s, u"Ca&libration"_s, u"&Option"_s,
                u"Special &running"_s, u""_s, u""_s, u""_s}},
        {useEnglish, kqm3File, englishWindow,
            {u"Mo&tor"_s, u"&Speed setting"_s, u"Acc/&Dec"_s, u"&Protect"_s, u"&Monitor"_s, u"&Brake"_s,
                u"Terminal &Alloc"_s, u"&V/F control"_s, u""_s, u"Ca&libration"_s, u"&Option"_s, u"Special &running"_s,
                u"Sp&eed control"_s, u"Tor&que control"_s, u"Positio&n control"_s}},
        {useJapanese, normalFile, japaneseWindow,
            {u"ﾓｰﾀﾄﾙｸ(&T)"_s, u"周波数設定(&F)"_s, u"加減速(&D)"_s, u"保護(&P)"_s, u"ﾓﾆﾀ(&M)"_s, u"制動(&B)"_s,
                u"端子割付(&A)"_s, u"磁束ﾍﾞｸﾄﾙ(&G)"_s, u"ｲﾝﾃﾘｼﾞｪﾝﾄ(&I)"_s, u"校正(&L)"_s, u"ｵﾌﾟｼｮﾝ(&O)"_s,
                u"特殊運転(&R)"_s, u""_s, u""_s, u""_s}},
        {useJapanese, kqm3File, japaneseWindow,
            {u"ﾓｰﾀ(&T)"_s, u"速度設定(&S)"_s, u"加減速(&D)"_s, u"保護(&P)"_s, u"ﾓﾆﾀ(&M)"_s, u"制動(&B)"_s,
                u"端子割付(&A)"_s, u"V/F制御(&V)"_s, u""_s, u"校正(&L)"_s, u"ｵﾌﾟｼｮﾝ(&O)"_s, u"特殊運転(&R)"_s,
                u"速度制御(&E)"_s, u"ﾄﾙｸ制御(&Q)"_s, u"位置制御(&N)"_s}},
    }));

TEST_F(FuncDialog, manyCodesOpenAndComeBackAsTheBoxesSay)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        const auto opened = static_cast<qint16>(random() & 0xFFFF);
        const bool kqm3 = round % 2 == 1;
        const int kept = opened & (kqm3 ? 0x7EFF : 0x0FFF);
        const bool changed = show(opened, kqm3 ? kqm3File : normalFile, [&] {
            EXPECT_EQ(shownCode(), u"%1"_s.arg(quint16(opened), 4, 16, QChar(u'0')).toUpper());
            for (int group = 0; group < FunctionGroupCount; ++group) {
                EXPECT_EQ(box(group).isChecked(), bool(kept >> group & 1)) << "code " << opened << " group " << group;
            }
            ok();
        });
        ASSERT_EQ(changed, kept != opened) << "code " << opened;
        ASSERT_EQ(code, kept) << "code " << opened;
    }
}

} // namespace
