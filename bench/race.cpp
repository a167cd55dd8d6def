// Starts the game as WinMain does, but without its main loop.
#include "bench/race.h"

#include "game/start_up.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "tools/demo/data_folder.h"

namespace tarvik::bench {

namespace {

constexpr std::uint32_t SEED = 1;

} // namespace

demo::Driver start_race() {
    static bool has_started = false;
    if (!has_started) {
        demo::enter_data_folder({}, 2);
        start_up();
        has_started = true;
    }
    load_track_map(".\\data\\race1.map");
    reset_race();
    srand(SEED);
    return {demo::Style::BEST, SEED};
}

} // namespace tarvik::bench
