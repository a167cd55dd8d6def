// Requests to the X server, and what it tells about the window.
#include "tests/desktop/player.h"

#include <cstring>
#include <thread>

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>

namespace tarvik {

namespace {

constexpr const char* TITLE = "Quillaby - Tarvik V0.1";

} // namespace

Player::Player(const std::string& display) : display_(XOpenDisplay(display.c_str())) {
    if (display_ != nullptr) {
        // Windows come and go between two requests; that must not end the test.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
        XSelectInput(display_, DefaultRootWindow(display_), SubstructureNotifyMask);
        XSync(display_, False);
    }
}

Player::~Player() {
    if (display_ != nullptr) {
        XCloseDisplay(display_);
    }
}

bool Player::finds_game_with(unsigned long colour, int x, int y) {
    return waits_until([&] {
        read_events();
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned int count = 0;
        XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
        for (unsigned int i = 0; i < count; ++i) {
            char* name = nullptr;
            if (XFetchName(display_, children[i], &name) != 0) {
                window_ = std::strcmp(name, TITLE) == 0 ? children[i] : window_;
                XFree(name);
            }
        }
        XFree(children);
        return window_ != None && look_at({x, y, 1, 1}) == Pixels{colour};
    });
}

int Player::count_shown_windows() {
    XSync(display_, False);
    read_events();
    return shown_windows_;
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

void Player::press_code(unsigned int code) const {
    XTestFakeKeyEvent(display_, code, True, CurrentTime);
    XSync(display_, False);
}

void Player::release_code(unsigned int code) const {
    XTestFakeKeyEvent(display_, code, False, CurrentTime);
    XSync(display_, False);
}

void Player::press(KeySym key) const {
    press_code(XKeysymToKeycode(display_, key));
}

void Player::release(KeySym key) const {
    release_code(XKeysymToKeycode(display_, key));
}

void Player::tap(KeySym key) const {
    press(key);
    release(key);
}

void Player::move_mouse_to(int x, int y) const {
    int left = 0;
    int top = 0;
    Window child = None;
    XTranslateCoordinates(display_, window_, DefaultRootWindow(display_), 0, 0, &left, &top,
                          &child);
    XTestFakeMotionEvent(display_, -1, left + x, top + y, CurrentTime);
    XSync(display_, False);
}

void Player::turn_to_another_window() {
    const Window other =
        XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 50, 50, 0, 0, 0);
    XMapWindow(display_, other);
    XSync(display_, False);
    XSetInputFocus(display_, other, RevertToPointerRoot, CurrentTime);
    XSync(display_, False);
}

void Player::turn_to_game() const {
    XSetInputFocus(display_, window_, RevertToPointerRoot, CurrentTime);
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

void Player::watch_pictures() {
    int errors = 0;
    XDamageQueryExtension(display_, &damage_event_, &errors);
    XDamageCreate(display_, window_, XDamageReportRawRectangles);
    XSync(display_, False);
    read_events();
    pictures_ = 0;
}

int Player::count_pictures() {
    read_events();
    return pictures_;
}

void Player::wait_for_picture() {
    const int before = count_pictures();
    while (count_pictures() == before) {
        pollfd incoming = {ConnectionNumber(display_), POLLIN, 0};
        if (poll(&incoming, 1, 5000) == 0) {
            return;
        }
    }
}

void Player::read_events() {
    while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        shown_windows_ += event.type == MapNotify ? 1 : 0;
        // A frame reaches the window in one piece.
        pictures_ += damage_event_ >= 0 && event.type == damage_event_ + XDamageNotify ? 1 : 0;
    }
}

} // namespace tarvik
