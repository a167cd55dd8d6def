// Properties of the root window, read over a connection that lasts for one question.
#include "platform/desktop/x11_desktop.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <string_view>
#include <vector>

namespace tarvik {

namespace {

using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

Connection connect() {
    return {XOpenDisplay(nullptr), &XCloseDisplay};
}

// The numbers that a property holds; none where it is missing or of another type.
std::vector<unsigned long> property(Display* display, Window window, const char* name, Atom type) {
    constexpr long MOST = 1024;
    Atom actual_type = None;
    int bits = 0;
    unsigned long count = 0;
    unsigned long bytes_left = 0;
    unsigned char* data = nullptr;
    std::vector<unsigned long> numbers;
    if (XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, MOST, False, type,
                           &actual_type, &bits, &count, &bytes_left, &data) == Success &&
        actual_type == type && bits == 32) {
        const auto* first = reinterpret_cast<const unsigned long*>(data); // so Xlib hands them out
        numbers.assign(first, first + count);
    }
    if (data != nullptr) {
        XFree(data);
    }
    return numbers;
}

// A manager that has gone leaves its properties behind, but not the window they point to.
bool has_window_manager(Display* display) {
    constexpr const char* CHECK = "_NET_SUPPORTING_WM_CHECK";
    const auto check = property(display, DefaultRootWindow(display), CHECK, XA_WINDOW);
    return !check.empty() && property(display, check.front(), CHECK, XA_WINDOW) == check;
}

} // namespace

int x11_dots_per_inch() {
    int dots = 96;
    if (const Connection display = connect()) {
        const char* value = XGetDefault(display.get(), "Xft", "dpi");
        const std::string_view text = value != nullptr ? value : "";
        std::from_chars(text.data(), text.data() + text.size(), dots);
    }
    return dots;
}

bool x11_window_manager_grants_full_screen() {
    const Connection display = connect();
    if (!display || !has_window_manager(display.get())) {
        return false;
    }
    const auto supported =
        property(display.get(), DefaultRootWindow(display.get()), "_NET_SUPPORTED", XA_ATOM);
    const Atom full_screen = XInternAtom(display.get(), "_NET_WM_STATE_FULLSCREEN", False);
    return std::ranges::find(supported, full_screen) != supported.end();
}

} // namespace tarvik
