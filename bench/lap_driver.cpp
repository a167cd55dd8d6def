// Passing the car on to the driver and the driver's keys on to the game.
#include "bench/lap_driver.h"

#include "race/race_state.h"
#include "tools/demo/middle_of_road.h"

namespace tarvik::bench {

LapDriver::LapDriver(std::uint32_t seed) : course(demo::middle_of_road()), pilot(course, seed) {}

void LapDriver::act() {
    const demo::CarView car{{car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]},
                            heading[PLAYER_SLOT],
                            speed[PLAYER_SLOT],
                            gear[PLAYER_SLOT],
                            steer_count[PLAYER_SLOT]};
    keyboard.act(pilot.decide(car), gear[PLAYER_SLOT]);
}

bool LapDriver::has_completed_lap() {
    const bool was_timed = timed;
    timed = cycle[PLAYER_SLOT] > 0;
    if (!was_timed || timed) {
        return false;
    }
    if (last_cycle[PLAYER_SLOT] == 0) {
        pilot.find_place({car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]});
        return false;
    }
    pilot.begin_lap();
    return true;
}

} // namespace tarvik::bench
