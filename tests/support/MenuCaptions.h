#pragma once

#include "tests/support/FrameTest.h"

/// A caption of the menu bar in both languages.
struct MenuCaption
{
    QString menu;
    QString command; ///< empty: the menu itself
    QString english;
    QString japanese;
};

/// The captions of a program that was just started.
class MenuCaptions : public FrameTest, public testing::WithParamInterface<MenuCaption>
{
protected:
    /// The caption in the menu bar as it is now.
    QString shown();
};
