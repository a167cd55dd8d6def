// Keeps the book of laps: what was driven, in how many frames, and what went wrong.
#pragma once

namespace tarvik::demo {

enum class LapEvent { NONE, LAP, RESET };

class LapBook {
  public:
    /// Looks at the race state, once a frame and before the frame; prints a line for each completed
    /// lap and for each time the car was put back to the start.
    LapEvent look();

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
    int last_frame_cycle = 0;
    float last_frame_speed = 0.0F;
};

} // namespace tarvik::demo
