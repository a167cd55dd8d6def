// The demo's hands: key messages into the game's queue, at most one at a time.
//
// The game handles one message a frame, so a key change that waits behind another is a frame late.
// Nothing is posted while an earlier message is on its way, and the wheel goes before the pedals,
// the pedals before the gears.
#pragma once

#include "tools/demo/pilot.h"

namespace tarvik::demo {

class Keyboard {
  public:
    /// Moves one key towards what is wanted. To be called once a frame; `gear` is the car's, and
    /// tells whether a gear key has done its work.
    void act(const Wish& wish, int gear);

    /// Presses a key that is no part of driving, and lets it go again, before all others. To be
    /// called once a frame until it returns true: the key is up again.
    bool tap(int virtual_key);

  private:
    bool is_waiting(int gear);
    void post(int virtual_key, bool down);
    bool hold(int virtual_key, bool down);

    int posted_key = 0; ///< key of the message on its way, 0 if there is none
    bool posted_down = false;
    int frames_waited = 0;
    int gear_before = 0;   ///< when the message was posted
    int gear_key_held = 0; ///< gear key that is down for the system; the game has long consumed it
    int tapped_key = 0;
};

} // namespace tarvik::demo
