#include "desktop/BusyCursor.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>

#include <stdexcept>

TEST(BusyCursor, isShownAsLongAsItLives)
{
    {
        const BusyCursor outer;
        {
            const BusyCursor inner;
        }
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(BusyCursor, isGoneAfterAFailureToo)
{
    EXPECT_THROW(
        {
            const BusyCursor busy;
            throw std::runtime_error("failed");
        },
        std::runtime_error);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
