// The driver at the wheel: looks at the car and the course, and says which keys should be down.
#pragma once

#include "tools/demo/course.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace tarvik::demo {

/// What the driver sees of the car, in the units of race/race_state.h.
struct CarView {
    Point at;
    double heading;
    double speed;
    int gear;
    int steer_count;
};

/// What the driver wants the keys to do.
struct Wish {
    int steer = 0; ///< 1 left, -1 right, 0 neither
    bool throttle = false;
    bool brake = false;
    int shift = 0; ///< 1 one gear up, -1 one down, 0 none
};

/// How fast, and on which line.
enum class Style {
    BEST,    ///< as fast as the driver can, on the racing line
    MIDDLE,  ///< as fast as the driver can in the middle of the road
    CAUTIOUS ///< three quarters of the pace, in the middle of the road
};

class Pilot {
  public:
    /// The seed decides how the driver's line and pace differ from lap to lap.
    Pilot(const Course& driven_course, Style driving_style, std::uint32_t seed);

    /// To be called once a frame, before the frame's keys act.
    Wish decide(const CarView& car);

    /// The car is back at the start, or has completed a lap.
    void find_place(Point at);
    void begin_lap();

    /// Index on the course of the place that the car passes.
    std::size_t place() const {
        return current;
    }

  private:
    int steer(const CarView& car);
    void choose_pedal(const CarView& car);
    int choose_shift(const CarView& car) const;
    Point aim(double speed) const;

    enum class Pedal { NONE, THROTTLE, BRAKE };

    const Course& course;
    Style style;
    std::mt19937 luck;
    std::vector<double> pace;
    std::size_t current = 0;
    double line = 0.0;     // cells to the left of the course, in this lap
    int straight_left = 0; // frames in which the wheel stays straight so that the car won't slide
    Pedal pedal = Pedal::NONE;
};

} // namespace tarvik::demo
