// Keeps a record of the laps: what was driven, in how many frames, and what went wrong.
#pragma once

#include "tools/demo/driver.h"

namespace tarvik::demo {

class LapBook {
  public:
    /// Prints a line for each completed lap and for each time the car was put back to the start.
    void enter(LapEvent event);

    int laps() const {
        return completed;
    }

    /// One line about all laps.
    void print_summary() const;

  private:
    int completed = 0;
    int clean = 0; ///< completed without a penalty
    int resets = 0;
    int resets_in_lap = 0;
};

} // namespace tarvik::demo
