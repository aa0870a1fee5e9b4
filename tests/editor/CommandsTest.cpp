#include "editor/Commands.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QKeySequence>

#include <set>

using namespace Qt::StringLiterals;

TEST(Commands, eachDoesOneThing)
{
    for (const CommandInfo &command : commands()) {
        const int handlers = (command.ofFrame ? 1 : 0) + (command.ofEditor ? 1 : 0);
        EXPECT_EQ(handlers, command.line == CommandInfo::Line::Command ? 1 : 0)
            << command.name.toString().toStdString();
    }
}

TEST(Commands, eachCanBeReached)
{
    for (const CommandInfo &command : commands()) {
        EXPECT_TRUE(command.menu != MenuName::None || command.hasKey() || command.button);
        if (command.line == CommandInfo::Line::Command) {
            EXPECT_EQ(command.menu != MenuName::None, command.caption.has_value())
                << command.name.toString().toStdString();
            EXPECT_EQ(command.menu != MenuName::None, !command.name.isEmpty());
        }
    }
}

TEST(Commands, noTwoHaveTheSameNameOrKey)
{
    std::set<QString> names;
    std::set<int> keys;
    for (const CommandInfo &command : commands()) {
        if (!command.name.isEmpty()) {
            EXPECT_TRUE(names.insert(command.name.toString()).second) << command.name.toString().toStdString();
        }
        if (command.hasKey()) {
            EXPECT_TRUE(keys.insert(command.key.toCombined()).second)
                << QKeySequence(command.key).toString().toStdString();
        }
    }
}

TEST(Commands, theirMenusFollowOneAnother)
{
    auto last = MenuName::File;
    for (const CommandInfo &command : commands()) {
        EXPECT_GE(command.menu, last) << command.name.toString().toStdString();
        last = command.menu;
    }
}

TEST(Commands, theirButtonsAreNumberedFromTheLeftAndHaveDifferentTips)
{
    std::set<int> positions;
    std::set<Text> tips;
    for (const CommandInfo &command : commands()) {
        if (command.button) {
            positions.insert(command.button->position);
            tips.insert(command.button->tip);
        }
    }
    EXPECT_EQ(positions, (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(tips.size(), positions.size());
}
