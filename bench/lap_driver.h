// The demo's driver at the wheel of a game that a benchmark runs frame by frame.
#pragma once

#include "tools/demo/course.h"
#include "tools/demo/keyboard.h"
#include "tools/demo/pilot.h"

#include <cstdint>

namespace tarvik::bench {

class LapDriver {
  public:
    /// Looks for the road of the track that is loaded.
    explicit LapDriver(std::uint32_t seed);

    /// Before a frame: presses or lets go at most one key.
    void act();

    /// After the frame: whether it has completed a lap. A car that was put back to the start begins
    /// its lap again.
    bool has_completed_lap();

  private:
    demo::Course course;
    demo::Pilot pilot;
    demo::Keyboard keyboard;
    bool timed = false;
};

} // namespace tarvik::bench
