// A driver at the wheel of the game: looks at the car and the road once a frame, and presses keys.
#pragma once

#include "tools/demo/course.h"
#include "tools/demo/keyboard.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace tarvik::demo {

/// How fast, and on which line.
enum class Style {
    BEST,    ///< as fast as the driver can, on the racing line
    MIDDLE,  ///< as fast as the driver can in the middle of the road
    CAUTIOUS ///< three quarters of the pace, in the middle of the road
};

enum class LapEvent { NONE, LAP, RESET };

class Driver {
  public:
    /// Looks for the road of the track that is loaded. The seed decides how line and pace differ
    /// from lap to lap.
    Driver(Style driving_style, std::uint32_t seed);

    /// Whether a road leads from the start/finish box round to the start. Without it nothing below
    /// may be called.
    bool knows_the_way() const {
        return way.size() > 0;
    }

    /// What the last frame has brought: a completed lap, or the car put back to the start.
    LapEvent look();

    /// Before a frame: presses or lets go at most one key.
    void act();

    /// The middle of the road, the way that the driver takes, and the place on it that the car
    /// passes.
    const Course& middle() const {
        return road;
    }
    const Course& course() const {
        return way;
    }
    std::size_t place() const {
        return current;
    }

  private:
    void begin_lap();
    Point aim() const;
    int steer();
    void choose_pedal();
    int choose_shift() const;

    enum class Pedal { NONE, THROTTLE, BRAKE };

    Style style;
    Course road;
    Course way;
    std::mt19937 luck;
    std::vector<double> pace;
    Keyboard keyboard;
    std::size_t current = 0;
    double line = 0.0;     // cells to the left of the course, in this lap
    int straight_left = 0; // frames in which the wheel stays straight so that the car won't slide
    Pedal pedal = Pedal::NONE;
    int last_frame_cycle = 0;
    float last_frame_speed = 0.0F;
};

} // namespace tarvik::demo
