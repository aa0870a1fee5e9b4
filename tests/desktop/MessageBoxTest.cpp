#include "desktop/MessageBox.h"

#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;
using MessageBox::Answer;

namespace {

/// Runs check on the message box that opens next, and closes it if check has not.
void whenShown(const std::function<void(QMessageBox &)> &check)
{
    QTimer::singleShot(0, qApp, [check] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        check(*box);
        if (box->isVisible()) {
            box->done(QMessageBox::NoButton);
        }
    });
}

QStringList buttonTexts(const QMessageBox &box)
{
    QStringList texts;
    for (const QAbstractButton *button : box.buttons()) {
        texts << button->objectName() + u'=' + button->text();
    }
    texts.sort();
    return texts;
}

class MessageBoxTest : public testing::Test
{
protected:
    MessageBoxTest() { MessageBox::setButtonTexts(u"OK"_s, u"はい(&Y)"_s, u"いいえ(&N)"_s, u"ｷｬﾝｾﾙ"_s); }
    ~MessageBoxTest() override { MessageBox::setButtonTexts({}, {}, {}, {}); }
};

} // namespace

TEST_F(MessageBoxTest, plainMessageHasTextTitleAndOneButtonButNoIcon)
{
    bool shown = false;
    whenShown([&](const QMessageBox &box) {
        shown = true;
        EXPECT_EQ(box.text(), u"Different range"_s);
        EXPECT_EQ(box.windowTitle(), u"Tabrix"_s);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(buttonTexts(box), QStringList{u"cmdOK=OK"_s});
    });
    MessageBox::showPlain(nullptr, u"Different range"_s, u"Tabrix"_s);
    EXPECT_TRUE(shown);
}

TEST_F(MessageBoxTest, exclamationHasTheWarningIcon)
{
    bool shown = false;
    whenShown([&](const QMessageBox &box) {
        shown = true;
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(buttonTexts(box), QStringList{u"cmdOK=OK"_s});
    });
    MessageBox::showExclamation(nullptr, u"Overflow"_s, u"a.inv"_s);
    EXPECT_TRUE(shown);
}

TEST_F(MessageBoxTest, questionHasTheProgramsOwnButtonTexts)
{
    bool shown = false;
    whenShown([&](const QMessageBox &box) {
        shown = true;
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(buttonTexts(box), (QStringList{u"cmdCancel=ｷｬﾝｾﾙ"_s, u"cmdNo=いいえ(&N)"_s, u"cmdYes=はい(&Y)"_s}));
    });
    MessageBox::askYesNoCancel(nullptr, u"a.inv is update."_s, u"Tabrix"_s);
    EXPECT_TRUE(shown);
}

TEST_F(MessageBoxTest, aNameThatLooksLikeMarkupIsShownAsItStands)
{
    Qt::TextFormat format = Qt::AutoText;
    whenShown([&](const QMessageBox &box) {
        format = box.textFormat();
        EXPECT_EQ(box.text(), u"<b>bold</b>&amp.inv"_s);
    });
    MessageBox::showExclamation(nullptr, u"<b>bold</b>&amp.inv"_s, u"Tabrix"_s);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(MessageBoxTest, showsTheArrowInsteadOfTheBusyCursor)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    Qt::CursorShape shape = Qt::WaitCursor;
    whenShown([&](const QMessageBox &) { shape = QGuiApplication::overrideCursor()->shape(); });
    MessageBox::showPlain(nullptr, u"Overflow"_s, u"Tabrix"_s);
    EXPECT_EQ(shape, Qt::ArrowCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

TEST_F(MessageBoxTest, okIsReachedByEnterAndEscape)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        bool closed = false;
        whenShown([&](QMessageBox &box) {
            QTest::keyClick(&box, key);
            closed = !box.isVisible();
        });
        MessageBox::showExclamation(nullptr, u"Overflow"_s, u"Tabrix"_s);
        EXPECT_TRUE(closed) << key;
    }
}

namespace {

struct KeyCase
{
    Qt::Key key;
    Answer answer;
};

class MessageBoxKey : public testing::TestWithParam<KeyCase>
{
protected:
    MessageBoxKey() { MessageBox::setButtonTexts(u"OK"_s, u"&Yes"_s, u"&No"_s, u"CANCEL"_s); }
    ~MessageBoxKey() override { MessageBox::setButtonTexts({}, {}, {}, {}); }
};

struct ClickCase
{
    QString button;
    Answer answer;
};

class MessageBoxClick : public testing::TestWithParam<ClickCase>
{
};

} // namespace

TEST_P(MessageBoxKey, answersTheQuestion)
{
    whenShown([](QMessageBox &box) {
        QTest::keyClick(&box, GetParam().key);
        // A letter presses its button for a moment first.
        EXPECT_TRUE(QTest::qWaitFor([&box] { return !box.isVisible(); }, patience));
    });
    EXPECT_EQ(MessageBox::askYesNoCancel(nullptr, u"Save?"_s, u"Tabrix"_s), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Keys, MessageBoxKey,
    testing::ValuesIn(std::vector<KeyCase>{
        {Qt::Key_Return, Answer::Yes},
        {Qt::Key_Escape, Answer::Cancel},
        {Qt::Key_Y, Answer::Yes},
        {Qt::Key_N, Answer::No},
    }));

TEST_P(MessageBoxClick, answersTheQuestion)
{
    whenShown(
        [](QMessageBox &box) { QTest::mouseClick(&control<QPushButton>(box, GetParam().button), Qt::LeftButton); });
    EXPECT_EQ(MessageBox::askYesNoCancel(nullptr, u"Save?"_s, u"Tabrix"_s), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Buttons, MessageBoxClick,
    testing::ValuesIn(std::vector<ClickCase>{
        {u"cmdYes"_s, Answer::Yes},
        {u"cmdNo"_s, Answer::No},
        {u"cmdCancel"_s, Answer::Cancel},
    }));

namespace {

int widthInBold(const QString &title)
{
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title);
}

constexpr int besideTitle = 100; ///< pixels of an icon and the buttons of a title bar, at least

} // namespace

TEST(MessageBoxTitle, isShownWhole)
{
    const int screen = QGuiApplication::primaryScreen()->availableSize().width();
    QString title = u"/home/user/"_s;
    while (widthInBold(title) < screen - 2 * besideTitle) {
        title += u"folder/"_s;
        whenShown([&](const QMessageBox &box) {
            QApplication::processEvents();
            EXPECT_EQ(box.windowTitle(), title);
            EXPECT_GE(box.width(), widthInBold(title) + besideTitle);
            EXPECT_LE(box.frameGeometry().right(), screen);
            EXPECT_GE(box.frameGeometry().left(), 0);
            EXPECT_EQ(box.text(), u"Overflow"_s);
        });
        MessageBox::showExclamation(nullptr, u"Overflow"_s, title);
    }
}

TEST(MessageBoxTitle, isAboveTheTextIfItIsTooWideForTheScreen)
{
    const QString title = u"/home/user/"_s + QString(u"folder/"_s).repeated(60) + u"end.inv"_s;
    whenShown([&](const QMessageBox &box) {
        QApplication::processEvents();
        EXPECT_TRUE(box.windowTitle().startsWith(u"/home/user/"_s)) << box.windowTitle().toStdString();
        EXPECT_TRUE(box.windowTitle().endsWith(u"end.inv"_s)) << box.windowTitle().toStdString();
        EXPECT_LE(widthInBold(box.windowTitle()), box.width());
        QString text = box.text();
        EXPECT_EQ(text.remove(u'\u200b'), title + u"\n\nOverflow"_s);
        EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
    });
    MessageBox::showExclamation(nullptr, u"Overflow"_s, title);
}

TEST(MessageBoxCloseBox, meansCancel)
{
    whenShown([](QMessageBox &box) { box.close(); });
    EXPECT_EQ(MessageBox::askYesNoCancel(nullptr, u"Save?"_s, u"Tabrix"_s), Answer::Cancel);
}
