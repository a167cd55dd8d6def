// Requests to the X server, and what it tells about the window.
#include "tests/desktop/player.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <thread>

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>

namespace tarvik {

Pixels fitted(const Pixels& frame, int width, int height) {
    const int factor = std::max(1, std::min(width / 320, height / 240));
    const int left = (width - 320 * factor) / 2;
    const int top = (height - 240 * factor) / 2;
    Pixels pixels;
    for (int y = -top; y < height - top; ++y) {
        for (int x = -left; x < width - left; ++x) {
            const bool is_inside = x >= 0 && y >= 0 && x < 320 * factor && y < 240 * factor;
            const int at = 2 * (y / factor) * 640 + 2 * (x / factor);
            pixels.push_back(is_inside ? frame.at(static_cast<std::size_t>(at)) : 0);
        }
    }
    return pixels;
}

Player::Player(const std::string& display) : display_(XOpenDisplay(display.c_str())) {
    if (display_ == nullptr) {
        throw std::runtime_error("no display " + display);
    }
    // Windows come and go between two requests; that must not end the test.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
    int errors = 0;
    XDamageQueryExtension(display_, &damage_event_, &errors);
    XSync(display_, False);
}

Player::~Player() {
    XCloseDisplay(display_);
}

void Player::find_window(const char* title) {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned int count = 0;
    XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
    for (unsigned int i = 0; i < count; ++i) {
        char* name = nullptr;
        XFetchName(display_, children[i], &name);
        if (std::strcmp(name != nullptr ? name : "", title) == 0) {
            window_ = children[i];
        }
        XFree(name);
    }
    XFree(children);
}

bool Player::finds_game_with(unsigned long colour, int x, int y, const char* title) {
    const bool found = waits_until([&] {
        read_events();
        find_window(title);
        return window_ != None && look_at({x, y, 1, 1}) == Pixels{colour};
    });
    XDamageDestroy(display_, damage_);
    damage_ = XDamageCreate(display_, window_, XDamageReportRawRectangles);
    return found;
}

int Player::count_shown_windows() {
    XSync(display_, False);
    read_events();
    return shown_windows_;
}

Area Player::place() const {
    XWindowAttributes now{};
    XGetWindowAttributes(display_, window_, &now);
    return {now.x, now.y, now.width, now.height};
}

Pixels Player::look_at(const Area& area) const {
    Pixels pixels;
    XImage* image =
        XGetImage(display_, window_, area.x, area.y, static_cast<unsigned int>(area.width),
                  static_cast<unsigned int>(area.height), AllPlanes, ZPixmap);
    if (image == nullptr) {
        return pixels;
    }
    for (int y = 0; y < area.height; ++y) {
        for (int x = 0; x < area.width; ++x) {
            pixels.push_back(XGetPixel(image, x, y) & 0xFFFFFF);
        }
    }
    XDestroyImage(image);
    return pixels;
}

bool Player::waits_until(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

bool Player::sees(const Area& area, const Pixels& pixels) const {
    return waits_until([&] { return look_at(area) == pixels; });
}

// A window that has gone shows nothing, which is no change.
bool Player::sees_change(const Area& area, const Pixels& before) const {
    return waits_until([&] {
        const Pixels now = look_at(area);
        return !now.empty() && now != before;
    });
}

void Player::send_key(KeySym key, Bool down) const {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), down, CurrentTime);
    XSync(display_, False);
}

void Player::move_mouse_to(int x, int y) const {
    const Area shown = place();
    XTestFakeMotionEvent(display_, -1, shown.x + x, shown.y + y, CurrentTime);
    XSync(display_, False);
}

void Player::turn_to(Window window) const {
    XSetInputFocus(display_, window, RevertToPointerRoot, CurrentTime);
    XSync(display_, False);
}

void Player::ask_to_close() const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window_;
    event.xclient.message_type = XInternAtom(display_, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_, "WM_DELETE_WINDOW", False));
    XSendEvent(display_, window_, False, NoEventMask, &event);
    XSync(display_, False);
}

int Player::count_frames() {
    read_events();
    return frames_;
}

bool Player::sees_frames(int count) {
    const int enough = count_frames() + count;
    return waits_until([&] { return count_frames() >= enough; });
}

void Player::read_events() {
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        shown_windows_ += event.type == MapNotify ? 1 : 0;
        // A frame reaches the window in one piece.
        frames_ += event.type == damage_event_ + XDamageNotify ? 1 : 0;
    }
}

} // namespace tarvik
