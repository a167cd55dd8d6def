// What the driver sees of the game's state, and which way it takes.
#include "tools/demo/driver.h"

#include "race/race_state.h"
#include "tools/demo/middle_of_road.h"
#include "tools/demo/racing_line.h"

namespace tarvik::demo {

namespace {

/// Cells that the fast line keeps from the grass: half a car, a hand that is not always quick, and
/// lines that differ from lap to lap.
constexpr double LINE_MARGIN = 23.0;

} // namespace

Driver::Driver(Style style, std::uint32_t seed)
    : road(middle_of_road()),
      way(style == Style::BEST && road.size() > 0 ? racing_line(road, LINE_MARGIN) : road) {
    if (knows_the_way()) {
        pilot.emplace(way, style, seed);
    }
}

LapEvent Driver::look() {
    const bool clock_stopped = last_frame_cycle > 0 && cycle[PLAYER_SLOT] == 0;
    const bool was_stopped = last_frame_speed > 0.0F && speed[PLAYER_SLOT] == 0.0F;
    last_frame_cycle = cycle[PLAYER_SLOT];
    last_frame_speed = speed[PLAYER_SLOT];
    if (was_stopped) { // brakes never stop a car completely; only being put back does
        pilot->find_place({car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]});
        return LapEvent::RESET;
    }
    if (clock_stopped) {
        pilot->begin_lap();
        return LapEvent::LAP;
    }
    return LapEvent::NONE;
}

void Driver::act() {
    const CarView car{{car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]},
                      heading[PLAYER_SLOT],
                      speed[PLAYER_SLOT],
                      gear[PLAYER_SLOT],
                      steer_count[PLAYER_SLOT]};
    keyboard.act(pilot->decide(car), car.gear);
}

} // namespace tarvik::demo
