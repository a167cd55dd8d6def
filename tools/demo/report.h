// What a lap was like: gears, brakes, wheel, and each bend.
#pragma once

#include "tools/demo/course.h"

#include <vector>

namespace tarvik::demo {

class Report {
  public:
    /// To be called before each frame: notes what the car does.
    void note_frame();

    /// The lap is completed: it is kept if none was faster. A lap that was broken off is forgotten.
    void end_lap(int result);
    void break_off();

    /// Prints the fastest lap. `middle` is the middle of the road.
    void print(const Course& middle) const;

  private:
    struct Frame {
        Point at;
        double speed = 0.0;
        int gear = 0;
        bool braking = false;
        bool steering = false;
    };
    struct Stretch { ///< frames of a lap, both included
        std::size_t first;
        std::size_t last;
    };
    void print_shares() const;
    void print_braking_zones() const;
    void print_bend(int number, double degrees, const Place& apex, Stretch frames) const;

    std::vector<Frame> lap;
    std::vector<Frame> fastest;
    int fastest_result = 0;
};

} // namespace tarvik::demo
