#include "support/Display.h"

#include <poll.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace ventlock::bench {
namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Answer = std::unique_ptr<T, FreeMemory>;

constexpr std::uint32_t kLongestProperty = 256;  // in words of four bytes

template <class T>
const T& As(const xcb_generic_event_t& event) {
    return reinterpret_cast<const T&>(event);
}

}  // namespace

Display::Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) {
        xcb_disconnect(connection_);
        throw std::runtime_error("there is no display to measure windows on");
    }
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
}

Display::~Display() {
    xcb_disconnect(connection_);
}

xcb_atom_t Display::Atom(const char* name) const {
    const auto request = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Answer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(connection_, request, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string Display::Property(xcb_window_t window, xcb_atom_t property) const {
    const auto request =
        xcb_get_property(connection_, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty);
    const Answer<xcb_get_property_reply_t> answer(xcb_get_property_reply(connection_, request, nullptr));
    if (!answer) return {};
    return {static_cast<const char*>(xcb_get_property_value(answer.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(answer.get()))};
}

bool Display::IsMainWindow(xcb_window_t window, const std::string& title) const {
    if (!Property(window, XCB_ATOM_WM_NAME).starts_with(title)) return false;
    const std::string type = Property(window, Atom("_NET_WM_WINDOW_TYPE"));
    const xcb_atom_t normal = Atom("_NET_WM_WINDOW_TYPE_NORMAL");
    return type.find(std::string_view(reinterpret_cast<const char*>(&normal), sizeof normal)) == 0;
}

bool Display::IsMapped(xcb_window_t window) const {
    const auto request = xcb_get_window_attributes(connection_, window);
    const Answer<xcb_get_window_attributes_reply_t> answer(
        xcb_get_window_attributes_reply(connection_, request, nullptr));
    return answer && answer->map_state != XCB_MAP_STATE_UNMAPPED;
}

void Display::Watch(xcb_window_t window) {
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &events);
    watched_.insert(window);
}

xcb_window_t Display::MappedBy(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7F) {
        case XCB_CREATE_NOTIFY: {
            const auto& created = As<xcb_create_notify_event_t>(event);
            if (created.override_redirect != 0) return 0;  // a menu, a tool tip or a window manager's frame
            Watch(created.window);
            return IsMapped(created.window) ? created.window : 0;
        }
        case XCB_MAP_NOTIFY: {
            const xcb_window_t window = As<xcb_map_notify_event_t>(event).window;
            return watched_.contains(window) ? window : 0;
        }
        default:
            return 0;
    }
}

void Display::Forget() {
    while (const Answer<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    }
    watched_.clear();
}

std::optional<Display::Window> Display::AwaitWindow(const std::string& title, std::chrono::seconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    pollfd input{xcb_get_file_descriptor(connection_), POLLIN, 0};
    while (std::chrono::steady_clock::now() < end) {
        const Answer<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
        if (!event) {
            if (xcb_connection_has_error(connection_) != 0) break;
            poll(&input, 1, 100);
            continue;
        }
        const auto now = std::chrono::steady_clock::now();
        const xcb_window_t window = MappedBy(*event);
        if (window == 0 || !IsMainWindow(window, title)) continue;
        int process = 0;
        const std::string number = Property(window, Atom("_NET_WM_PID"));
        if (number.size() == sizeof process) std::memcpy(&process, number.data(), sizeof process);
        return Window{window, process, now};
    }
    return {};
}

void Display::Close(const Window& window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window.id;
    message.type = Atom("WM_PROTOCOLS");
    message.data.data32[0] = Atom("WM_DELETE_WINDOW");
    xcb_send_event(connection_, 0, window.id, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

}  // namespace ventlock::bench
