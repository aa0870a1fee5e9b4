// Each dialog's help topic, by its Help button and by the keys for it.

#include "app/services/Language.h"
#include "help/HelpBrowser.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QWidget *helpWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "helpWindow"_L1 && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

std::vector<OpenedDialog> dialogsWithHelp()
{
    std::vector<OpenedDialog> dialogs;
    std::ranges::copy_if(openedDialogs, std::back_inserter(dialogs),
        [](const OpenedDialog &dialog) { return dialog.helpPage != nullptr; });
    return dialogs;
}

using HelpWay = void (*)(QDialog &dialog);

class DialogHelp : public testing::TestWithParam<std::tuple<OpenedDialog, HelpWay>>
{
protected:
    void SetUp() override
    {
        useEnglish();
        HelpFilePath = QStringLiteral(TABRIX_HELP_FOLDER "/TABRIXE.HLP");
    }
    void TearDown() override
    {
        if (QWidget *window = helpWindow()) {
            window->close();
        }
    }
};

TEST_P(DialogHelp, showsTheDialogsTopicAndLeavesTheDialogOpen)
{
    const auto &[tested, askForHelp] = GetParam();
    tested.open([askForHelp = askForHelp, page = QLatin1StringView(tested.helpPage)](QDialog &dialog) {
        askForHelp(dialog);
        ASSERT_TRUE(QTest::qWaitFor([] { return helpWindow() != nullptr; }, patience));
        EXPECT_EQ(control<HelpBrowser>(*helpWindow(), u"helpBrowser"_s).source().fileName(), page);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogHelp,
    testing::Combine(testing::ValuesIn(dialogsWithHelp()),
        testing::Values([](QDialog &dialog) { click(dialog, u"cmdHelp"_s); }, [](QDialog &) { press(Qt::Key_F1); },
            [](QDialog &) { press(Qt::Key_H, Qt::AltModifier); })));

class HelpButton : public testing::TestWithParam<OpenedDialog>
{
};

TEST_P(HelpButton, isThereWhereThereIsATopic)
{
    useEnglish();
    GetParam().open([](QDialog &dialog) {
        EXPECT_EQ(dialog.findChild<QPushButton *>(u"cmdHelp"_s) != nullptr, GetParam().helpPage != nullptr);
        dialog.reject();
    });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, HelpButton, testing::ValuesIn(openedDialogs));

TEST(DialogWithoutHelp, ignoresTheHelpKey)
{
    useEnglish();
    openCap([](QDialog &dialog) {
        press(Qt::Key_F1);
        EXPECT_EQ(helpWindow(), nullptr);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
}

} // namespace
