// Everything that a race consists of: cars, laps, ghosts and what the player has chosen.
//
// Units, throughout race/: lengths are track cells, as large as logical pixels, with x to the right
// and y downwards. Positions have fractions; cutting them off gives the cell. Headings are degrees,
// never wrapped: 0 is down the view, 90 right, 180 up. Time is frames and nothing else, so speed is
// cells per frame.
#pragma once

#include <cstdint>

namespace tarvik {

// --- Car slots ---------------------------------------------------------------------------------

inline constexpr int CAR_SLOTS = 20;
inline constexpr int PLAYER_SLOT = 1;
/// The ghosts' slots, the newest lap first. The slots not named here are spare.
inline constexpr int FIRST_GHOST_SLOT = 2;
inline constexpr int LAST_GHOST_SLOT = 6;

/// Where the car starts: 80 cells below the centre of the start/finish box, pointing straight at
/// it.
inline constexpr float START_X = 2400.0F;
inline constexpr float START_Y = 2480.0F;
inline constexpr float START_HEADING = 180.0F;

inline constexpr std::int32_t TOP_GEAR = 6;
/// `best_cycle` while no lap has been completed.
inline constexpr std::int32_t BEST_CYCLE_NONE = 999999;

// Per car slot; only the player's ever change.
extern float car_x[CAR_SLOTS];       ///< cells, 0 to 9999 as long as the car stays on the grid
extern float car_y[CAR_SLOTS];       ///< cells, like car_x
extern float heading[CAR_SLOTS];     ///< degrees, unbounded
extern float speed[CAR_SLOTS];       ///< cells per frame, 0 to just above 3.3
extern std::int32_t gear[CAR_SLOTS]; ///< 0 (neutral) to TOP_GEAR
/// Off-road penalty, in frames: grows by 1 per corner off the road and frame, even while no lap is
/// timed, and starts at 0 with each lap.
extern float penalty[CAR_SLOTS];
/// Frames of the lap so far: 0 while none is timed, else 2 to CYCLE_LIMIT + 1 once a frame is over.
extern std::int32_t cycle[CAR_SLOTS];
/// Frames plus penalty of the last completed lap; 0 before the first and after a reset.
extern std::int32_t last_cycle[CAR_SLOTS];
/// Smallest `last_cycle` since the race started afresh, or BEST_CYCLE_NONE.
extern std::int32_t best_cycle[CAR_SLOTS];
/// Frames since the last one with a steering key.
extern std::int32_t frames_since_steer[CAR_SLOTS];
/// Steps in `steer_history` since the steering run began, 0 to 42.
extern std::int32_t steer_count[CAR_SLOTS];

struct Colour {
    std::int32_t red; ///< 0 to 255, like the others
    std::int32_t green;
    std::int32_t blue;
};
extern Colour car_colour[CAR_SLOTS];

// --- Steering history --------------------------------------------------------------------------

inline constexpr int STEER_HISTORY_SIZE = 60;
/// Headings, in degrees, that the player's car had before its latest steering steps.
extern float steer_history[STEER_HISTORY_SIZE];

// --- Ghost laps --------------------------------------------------------------------------------

inline constexpr std::int32_t GHOST_FRAMES = 1000000;
/// The value of an entry that no lap has recorded.
inline constexpr float GHOST_NOWHERE = 111.0F;
inline constexpr float GHOST_NO_HEADING = 180.0F;

/// Per car slot a buffer of GHOST_FRAMES floats, indexed by `cycle`: where the car was and where it
/// pointed. The player's slot is recorded while driving; the ghost slots hold the previous laps.
extern float** ghost_x;
extern float** ghost_y;
extern float** ghost_heading;

// --- Settings ----------------------------------------------------------------------------------

inline constexpr std::int32_t EASY = 1;
inline constexpr std::int32_t THOUGH = 2;
inline constexpr std::int32_t ADVANCED = 3;

extern std::int32_t difficulty;  ///< EASY, THOUGH or ADVANCED
extern std::int32_t race_number; ///< which track is loaded, 1 or 2

// --- Operations --------------------------------------------------------------------------------

/// Allocates the ghost buffers (240 MB, kept until the process ends) and sets everything to its
/// initial value. Called once.
void init_race_state();

/// Puts the player's car back to the start, without speed, gear, lap or penalty. Best lap, ghosts
/// and settings stay.
void reset_car();

/// Starts the race afresh: no ghosts, no best lap, the car at the start. Settings stay.
void reset_race();

} // namespace tarvik
