// A task bar, as far as a window manager can tell: it asks that manager to iconify or to close a window.
// Arguments: "await", or "iconify" or "close" and the window's number.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>
#include <xcb/xcb.h>

namespace {

class Display
{
public:
    Display() : m_connection(xcb_connect(nullptr, nullptr)) { }
    ~Display() { xcb_disconnect(m_connection); }
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    xcb_window_t root() { return xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root; }
    xcb_atom_t atom(std::string_view name);
    bool hasManager();
    void askManager(xcb_window_t window, std::string_view request, uint32_t detail);

private:
    xcb_connection_t *m_connection;
};

xcb_atom_t Display::atom(std::string_view name)
{
    const auto cookie = xcb_intern_atom(m_connection, 0, uint16_t(name.size()), name.data());
    auto *reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
    const xcb_atom_t found = reply != nullptr ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return found;
}

bool Display::hasManager()
{
    const auto cookie =
        xcb_get_property(m_connection, 0, root(), atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 0, 1);
    auto *reply = xcb_get_property_reply(m_connection, cookie, nullptr);
    const bool found = reply != nullptr && reply->length > 0;
    std::free(reply);
    return found;
}

void Display::askManager(xcb_window_t window, std::string_view request, uint32_t detail)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(request);
    event.data.data32[0] = detail;
    event.data.data32[1] = 2; // a task bar asks
    char bytes[32];
    static_assert(sizeof bytes == sizeof event);
    std::memcpy(bytes, &event, sizeof bytes);
    xcb_send_event(
        m_connection, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, bytes);
    xcb_flush(m_connection);
    atom("_NET_WM_STATE"); // an answer tells that the request has arrived
}

} // namespace

int main(int argc, char **argv)
{
    using namespace std::chrono_literals;
    constexpr uint32_t iconicState = 3;
    const std::string_view command = argc > 1 ? argv[1] : "";
    const auto window = xcb_window_t(argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0);
    Display display;
    if (command == "iconify") {
        display.askManager(window, "WM_CHANGE_STATE", iconicState);
    } else if (command == "close") {
        display.askManager(window, "_NET_CLOSE_WINDOW", 0);
    } else if (command == "await") {
        while (!display.hasManager()) {
            std::this_thread::sleep_for(10ms);
        }
    } else {
        std::fputs("await, iconify WINDOW or close WINDOW\n", stderr);
        return 2;
    }
    return 0;
}
