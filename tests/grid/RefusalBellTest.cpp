// The sound of a refused character, as a display that is listened to tells of it.

#include "tests/grid/SpreadGridSupport.h"
#include "tests/support/Patience.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#define explicit explicit_ // a field's name in this C header
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;

namespace {

/// Listens to the display's bell through a connection of its own.
class BellListener
{
public:
    BellListener();
    ~BellListener() { xcb_disconnect(m_connection); }
    BellListener(const BellListener &) = delete;
    BellListener &operator=(const BellListener &) = delete;

    /// How often the bell rang since the last call, once the display has dealt with all that was asked of it before.
    int rings();

private:
    void waitForDisplay();

    xcb_connection_t *m_connection = xcb_connect(nullptr, nullptr);
};

BellListener::BellListener()
{
    const auto version = xcb_xkb_use_extension(m_connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    std::free(xcb_xkb_use_extension_reply(m_connection, version, nullptr));
    xcb_xkb_select_events(m_connection, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_EVENT_TYPE_BELL_NOTIFY, 0,
        XCB_XKB_EVENT_TYPE_BELL_NOTIFY, 0, 0, nullptr);
    waitForDisplay();
}

void BellListener::waitForDisplay()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

int BellListener::rings()
{
    waitForDisplay();
    int count = 0;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        const auto *notice = reinterpret_cast<const xcb_xkb_bell_notify_event_t *>(event);
        count += notice->xkbType == XCB_XKB_BELL_NOTIFY ? 1 : 0;
        std::free(event);
    }
    return count;
}

} // namespace

TEST(RefusalBell, ringsForARefusedCharacterOnly)
{
    const auto grid = shownGrid();
    BellListener bell;
    clickCell(*grid, 1, 2);
    typeText(*grid, u"100"_s);
    EXPECT_EQ(bell.rings(), 0);
    typeText(*grid, u"1"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bell.rings() == 1; }, patience));
    typeText(*grid, u"x"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bell.rings() == 1; }, patience));
    pressKey(*grid, Qt::Key_Backspace);
    typeText(*grid, u"0"_s);
    EXPECT_EQ(bell.rings(), 0);
}
