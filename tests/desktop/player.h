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
};

using Pixels = std::vector<unsigned long>; ///< 0xRRGGBB, row by row

class Player {
  public:
    explicit Player(const std::string& display);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
    ~Player();

    /// Waits for the game's window and for a frame in it that has a certain colour at a place.
    bool finds_game_with(unsigned long colour, int x, int y);

    /// Number of windows that have been shown since this player came.
    int count_shown_windows();

    Display* display() const {
        return display_;
    }

    Window window() const {
        return window_;
    }

    Pixels look_at(const Area& area) const;

    /// Waits until a condition holds. False when it does not within a minute.
    static bool waits_until(const std::function<bool()>& condition);

    void press(KeySym key) const;
    void release(KeySym key) const;
    void tap(KeySym key) const;
    void press_code(unsigned int code) const;
    void release_code(unsigned int code) const;
    void move_mouse_to(int x, int y) const;

    /// Gives the keyboard to a new window of the player's own.
    void turn_to_another_window();
    void turn_to_game() const;

    /// Sends what a window manager's close button does.
    void ask_to_close() const;

    /// From here on counts the frames that the window shows.
    void watch_pictures();
    int count_pictures();

    /// Waits for the next frame.
    void wait_for_picture();

  private:
    Display* display_;
    Window window_ = None;
    int shown_windows_ = 0;
    int pictures_ = 0;
    int damage_event_ = -1;

    void read_events();
};

} // namespace tarvik
