// The crash rules.
#include "race/crash.h"

#include "race/car_motion.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "race/random.h"

namespace tarvik {

namespace {

constexpr int ADVANCED_HITS = 3;           // corners off the track that end an "Advanced" drive
constexpr std::int32_t THOUGH_DRAWS = 160; // off-road frames to a reset, on average
constexpr std::int32_t EASY_DRAWS = 260;
constexpr std::int32_t RESET_DRAW = 1;

/// Draws a random number only where the difficulty leaves it to chance.
bool is_crash() {
    switch (difficulty) {
    case ADVANCED:
        return hits >= ADVANCED_HITS;
    case THOUGH:
        return rand() % THOUGH_DRAWS == RESET_DRAW;
    default: // EASY
        return rand() % EASY_DRAWS == RESET_DRAW;
    }
}

} // namespace

void apply_crash_rules() {
    if (cycle[PLAYER_SLOT] > CYCLE_LIMIT || (hits > 0 && is_crash())) {
        reset_car();
    }
}

} // namespace tarvik
