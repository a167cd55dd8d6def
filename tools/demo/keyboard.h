// The demo's hands: key messages into the game's queue, at most one at a time.
//
// The game handles one message a frame, so a key change that waits behind another is a frame late.
// Nothing is posted while an earlier message is on its way, and the wheel goes before the pedals,
// the pedals before the gears.
#pragma once

namespace tarvik::demo {

/// What the driver wants the keys to do.
struct Wish {
    int steer; ///< 1 left, -1 right, 0 neither
    bool throttle;
    bool brake;
    int shift; ///< 1 one gear up, -1 one down, 0 none
};

class Keyboard {
  public:
    /// Moves one key towards what is wanted. To be called once a frame.
    void act(const Wish& wish);

  private:
    bool is_waiting();
    void post(int virtual_key, bool down);
    bool hold(int virtual_key, bool down);

    int posted_key = 0; ///< key of the message on its way, 0 if there is none
    bool posted_down = false;
    int frames_waited = 0;
    int gear_before = 0;   ///< when the message was posted
    int gear_key_held = 0; ///< gear key that is down for the system; the game has long consumed it
};

/// Presses a key that is no part of driving, and lets it go.
void tap(int virtual_key);

} // namespace tarvik::demo
