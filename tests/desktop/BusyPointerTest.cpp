#include "desktop/BusyPointer.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>

#include <stdexcept>

TEST(BusyPointer, showsTheHourglassAsLongAsItLives)
{
    {
        const BusyPointer outer;
        {
            const BusyPointer inner;
        }
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(BusyPointer, isGoneAfterAFailureToo)
{
    EXPECT_THROW(
        {
            const BusyPointer busy;
            throw std::runtime_error("failed");
        },
        std::runtime_error);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
