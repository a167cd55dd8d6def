// A player made of X requests: sees the game's window, presses keys, moves the mouse.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <X11/Xlib.h>
#include <X11/keysym.h>

namespace tarvik {

/// A part of the window, in pixels from its upper left corner.
struct Area {
    int x;
    int y;
    int width;
    int height;
    bool operator==(const Area&) const = default;
};

using Pixels = std::vector<unsigned long>; ///< 0xRRGGBB, row by row

/// The game's frame, 640 by 480, as a window of another size shows it: each logical pixel is one
/// block of the largest size that fits, in the middle of black; a window too small shows the
/// frame's middle.
Pixels fitted(const Pixels& frame, int width, int height);

class Player {
  public:
    explicit Player(const std::string& display);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    ~Player();

    /// Waits for the game's window and for a frame in it that has a certain colour at a place.
    bool finds_game_with(unsigned long colour, int x, int y,
                         const char* title = "Quillaby - Tarvik V0.1");

    /// Number of windows that have been shown since this player came.
    int count_shown_windows();

    Display* display() const {
        return display_;
    }

    Window window() const {
        return window_;
    }

    /// The window's place on the screen.
    Area place() const;

    Pixels look_at(const Area& area) const;

    /// Waits until a condition holds. False when it does not within a minute.
    static bool waits_until(const std::function<bool()>& condition);

    /// Waits until a part of the window has exactly these pixels, or until it has others.
    bool sees(const Area& area, const Pixels& pixels) const;
    bool sees_change(const Area& area, const Pixels& before) const;

    void press(KeySym key) const {
        send_key(key, True);
    }

    void release(KeySym key) const {
        send_key(key, False);
    }

    void tap(KeySym key) const {
        press(key);
        release(key);
    }

    void move_mouse_to(int x, int y) const;

    /// Gives the keyboard to a window, or takes it away from all of them with None.
    void turn_to(Window window) const;

    /// Sends what a window manager's close button does.
    void ask_to_close() const;

    /// Number of frames that the window has shown since it was found.
    int count_frames();

    /// Waits until the window has shown so many more.
    bool sees_frames(int count);

  private:
    Display* display_;
    Window window_ = None;
    int shown_windows_ = 0;
    int frames_ = 0;
    XID damage_ = None; ///< reports the window's frames
    int damage_event_ = 0;

    void read_events();
    void find_window(const char* title);
    void send_key(KeySym key, Bool down) const;
};

} // namespace tarvik
