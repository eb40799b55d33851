#include "support/outside/FileDrag.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <array>
#include <memory>
#include <optional>

#include "support/outside/Waiting.h"

namespace ventlock::test {
namespace {

constexpr unsigned long kProtocol = 5;

/// "file:///a%20b" and a line end for each.
std::string UriList(const std::vector<std::string>& paths) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string list;
    for (const std::string& path : paths) {
        list += "file://";
        for (const char character : path) {
            if (kPlain.find(character) != std::string_view::npos) {
                list += character;
                continue;
            }
            const auto byte = static_cast<unsigned char>(character);
            list += '%';
            list += kDigits[byte / 16U];
            list += kDigits[byte % 16U];
        }
        list += "\r\n";
    }
    return list;
}

/// The side that files are dragged from.
class Source {
 public:
    explicit Source(std::string data) : data_(std::move(data)) {
        if (display_ == nullptr) StopTest("there is no display: run the tests by with_display.sh");
        own_ = XCreateSimpleWindow(display_.get(), DefaultRootWindow(display_.get()), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display_.get(), Named("XdndSelection"), own_, CurrentTime);
    }

    /// Drags to the middle of the program's window, lets go and waits for the end.
    void DropOn(int process) {
        if (!ComesTrue(
                [&] { return (target_ = FindTarget(DefaultRootWindow(display_.get()), process)) != 0; }))
            StopTest("the program has no window that takes anything");
        Tell("XdndEnter", {kProtocol << 24U, Named("text/uri-list")});
        if (!ComesTrue([&] { return IsWanted(); })) StopTest("the window does not want the files");
        Tell("XdndDrop", {0, CurrentTime});
        if (!ComesTrue([&] { return Answer("XdndFinished").has_value(); }))
            StopTest("the window has not taken the files");
    }

 private:
    using Words = std::array<unsigned long, 4>;

    [[nodiscard]] Atom Named(const char* name) const { return XInternAtom(display_.get(), name, False); }

    /// A property of one number, 0 when the window has none.
    [[nodiscard]] unsigned long Property(Window window, const char* name) const {
        Atom type = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long left = 0;
        unsigned char* value = nullptr;
        XGetWindowProperty(display_.get(), window, Named(name), 0, 1, False, AnyPropertyType, &type, &format,
                           &count, &left, &value);
        const unsigned long number =
            value != nullptr && format == 32 && count == 1 ? *reinterpret_cast<unsigned long*>(value) : 0;
        if (value != nullptr) XFree(value);
        return number;
    }

    /// The window that takes part in the protocol; 0 for none.
    [[nodiscard]] Window FindTarget(Window below, int process) const {
        if (Property(below, "XdndAware") != 0 &&
            Property(below, "_NET_WM_PID") == static_cast<unsigned long>(process))
            return below;
        Window root = 0;
        Window parent = 0;
        Window* children = nullptr;
        unsigned int count = 0;
        Window found = 0;
        XQueryTree(display_.get(), below, &root, &parent, &children, &count);
        for (unsigned int i = 0; i < count && found == 0; ++i) found = FindTarget(children[i], process);
        if (children != nullptr) XFree(children);
        return found;
    }

    void Tell(const char* what, Words words) const {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.display = display_.get();
        event.xclient.window = target_;
        event.xclient.message_type = Named(what);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(own_);
        for (std::size_t i = 0; i < words.size(); ++i)
            event.xclient.data.l[i + 1] = static_cast<long>(words[i]);
        XSendEvent(display_.get(), target_, False, NoEventMask, &event);
        XFlush(display_.get());
    }

    /// Asks whether the middle of the window wants the files.
    bool IsWanted() {
        XWindowAttributes size{};
        XGetWindowAttributes(display_.get(), target_, &size);
        int x = 0;
        int y = 0;
        Window child = 0;
        XTranslateCoordinates(display_.get(), target_, size.root, size.width / 2, size.height / 2, &x, &y,
                              &child);
        const unsigned long place = (static_cast<unsigned long>(x) << 16U) | static_cast<unsigned long>(y);
        Tell("XdndPosition", {0, place, CurrentTime, Named("XdndActionCopy")});
        std::optional<unsigned long> status;
        if (!ComesTrue([&] { return (status = Answer("XdndStatus")).has_value(); })) return false;
        return (*status & 1U) != 0;
    }

    /// The second word of an answer of this name, if it has come. Whoever asks for the files meanwhile gets
    /// them.
    std::optional<unsigned long> Answer(const char* name) {
        while (XPending(display_.get()) > 0) {
            XEvent event;
            XNextEvent(display_.get(), &event);
            if (event.type == SelectionRequest) Give(event.xselectionrequest);
            if (event.type == ClientMessage && event.xclient.message_type == Named(name))
                return static_cast<unsigned long>(event.xclient.data.l[1]);
        }
        return {};
    }

    void Give(const XSelectionRequestEvent& request) const {
        XChangeProperty(display_.get(), request.requestor, request.property, request.target, 8,
                        PropModeReplace, reinterpret_cast<const unsigned char*>(data_.data()),
                        static_cast<int>(data_.size()));
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = request.requestor;
        event.xselection.selection = request.selection;
        event.xselection.target = request.target;
        event.xselection.property = request.property;
        event.xselection.time = request.time;
        XSendEvent(display_.get(), request.requestor, False, NoEventMask, &event);
        XFlush(display_.get());
    }

    std::string data_;
    std::unique_ptr<Display, int (*)(Display*)> display_{XOpenDisplay(nullptr), XCloseDisplay};
    Window own_ = 0;
    Window target_ = 0;
};

}  // namespace

void DropFiles(int process, const std::vector<std::string>& paths) {
    Source(UriList(paths)).DropOn(process);
}

}  // namespace ventlock::test
