#include "runtime/AnsiText.h"
#include "runtime/Country.h"

#include <gtest/gtest.h>

// Windows has a page of its own.
TEST(CodePage, isTheCountrysUnlessOneIsSet)
{
    setCountryCode(81);
    EXPECT_EQ(ansiCodePageNumber(), 932);
    EXPECT_EQ(ansiCodePage().number(), 932);
    setCountryCode(49);
    EXPECT_EQ(ansiCodePageNumber(), 1252);
    setAnsiCodePageNumber(932);
    EXPECT_EQ(ansiCodePage().number(), 932);
    setAnsiCodePageNumber(0);
    setCountryCode(0);
}
