// Game controllers as keys: what their buttons, triggers, sticks and pads mean to the game.
//
// Buttons and axes are numbered in the order that browsers call "standard": buttons 0 to 3 the face
// buttons (bottom, right, left, top), 4 and 5 the shoulders, 6 and 7 the triggers, 8 Back, 9 Start,
// 10 and 11 the pressed sticks, 12 to 15 the directional pad (up, down, left, right); axis 0 is the
// left stick from left (-1) to right (1).
#pragma once

#include "platform/common/message_queue.h"

#include <bitset>
#include <map>
#include <vector>

namespace tarvik {

class ControllerKeys {
  public:
    static constexpr std::size_t MOST_MEANINGS = 16;

    /// Below this many waiting messages a held or released control is passed on.
    static constexpr std::size_t FEW_WAITING = 8;

    /// A button, 0 to 1, or an axis, -1 to 1, of a controller has this value now. Controllers are
    /// told apart by any number that the layer likes. Unknown buttons and axes mean nothing.
    void set_button(int controller, int button, float value);
    void set_axis(int controller, int axis, float value);

    /// The controller is gone, and with it whatever was held on it.
    void remove(int controller);

    /// Puts what has happened since the last call into the queue; to be called once a frame.
    /// `keyboard_holds` says whether the keyboard holds a key. One that it has pressed in the game
    /// and still holds stays down when the controller lets go of it.
    void append_messages(MessageQueue& queue, DWORD time, bool (*keyboard_holds)(int virtual_key));

    /// Notes a message on its way to the queue, if it is one of the keyboard's. False for the
    /// release of a key that, as far as the game has been told, a controller holds too: the game
    /// is not to hear of it.
    bool passes(const Message& message);

    /// Whether a controller held a key at the last append_messages, or pressed it since the one
    /// before, whatever the game has been told.
    bool holds(int virtual_key) const;

  private:
    static constexpr int KEYS = 256;
    using Keys = std::bitset<KEYS>; // by virtual key

    void set(int controller, int input, float value);

    std::map<int, std::bitset<MOST_MEANINGS>>
        active_;            // of each controller, by their place in the table
    Keys pressed_;          // since the last append_messages
    Keys held_;             // at the last append_messages
    Keys sent_;             // down, as far as the game has been told
    Keys from_keyboard_;    // pressed on the keyboard, as far as the game has been told
    std::vector<int> taps_; // in the order of the presses
};

} // namespace tarvik
