// A driver at the wheel of the game: eyes, head and hands, called once a frame.
#pragma once

#include "tools/demo/course.h"
#include "tools/demo/keyboard.h"
#include "tools/demo/pilot.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace tarvik::demo {

enum class LapEvent { NONE, LAP, RESET };

class Driver {
  public:
    /// Looks for the road of the track that is loaded.
    Driver(Style style, std::uint32_t seed);

    /// Whether a road leads from the start/finish box round to the start. Without it nothing below
    /// may be called.
    bool knows_the_way() const {
        return way.size() > 0;
    }

    /// What the last frame has brought: a completed lap, or the car put back to the start.
    LapEvent look();

    /// Before a frame: presses or lets go at most one key.
    void act();

    const Course& middle() const {
        return road;
    }
    const Course& course() const {
        return way;
    }
    std::size_t place() const {
        return pilot->place();
    }

  private:
    Course road; // its middle
    Course way;  // that the driver takes
    std::optional<Pilot> pilot;
    Keyboard keyboard;
    int last_frame_cycle = 0;
    float last_frame_speed = 0.0F;
};

} // namespace tarvik::demo
