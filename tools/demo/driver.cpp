// Steering at a point ahead, pedals after the planned pace, gears after the speed.
#include "tools/demo/driver.h"

#include "race/car_controls.h"
#include "race/car_motion.h"
#include "race/heading.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "tools/demo/pace.h"
#include "tools/demo/racing_line.h"
#include "tools/track/centre_line.h"

#include <algorithm>
#include <cmath>

namespace tarvik::demo {

namespace {

/// Cells that the fast line keeps from the grass: half a car, a hand that is not always quick, and
/// lines that differ from lap to lap.
constexpr double LINE_MARGIN = 23.0;

constexpr std::size_t PLACES_PASSED = 24; // more than a car passes in a frame; in hairpins, fewer
                                          // than to the other side

// The point the car steers at lies this far ahead: cells, and cells more per unit of speed.
constexpr double AIM_CELLS = 10.0;
constexpr double AIM_PER_SPEED = 9.0;

// From the 16th steering frame in a row a fast car slides; two frames without end the row.
constexpr int STEER_ROW_LIMIT = 14;
constexpr int STEER_ROW_PAUSE = 2;

/// A lower gear is worth the shift below this part of its end.
constexpr double SHIFT_DOWN_PART = 0.93;

// How laps differ: the line by so many cells to each side, the speed on straights between these
// two (the upper is more than the car can), the share of steering frames by so much.
constexpr double LINE_SPREAD = 5.0;
constexpr double CRUISE_LOW = 3.25;
constexpr double CRUISE_HIGH = 3.4;
constexpr double CAUTIOUS_PART = 0.75;
constexpr double SHARE_MEAN = 0.455;
constexpr double SHARE_SPREAD = 0.015;
constexpr double EDGE_MARGIN = 16.0; // cells that the middle of the car keeps from the grass

Point car_place() {
    return {car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]};
}

double car_speed() {
    return speed[PLAYER_SLOT];
}

/// Speed at which a gear stops pulling.
double gear_end(std::int32_t number) {
    return static_cast<double>(GEAR_RANGES[number].below);
}

} // namespace

Driver::Driver(Style driving_style, std::uint32_t seed)
    : style(driving_style), road(centre_line({track_grid, TRACK_WIDTH})),
      way(style == Style::BEST && road.size() > 0 ? racing_line(road, LINE_MARGIN) : road),
      luck(seed) {
    begin_lap();
}

void Driver::begin_lap() {
    const auto between = [this](double low, double high) {
        return low + (high - low) * static_cast<double>(luck()) / 4294967296.0;
    };
    line = between(-LINE_SPREAD, LINE_SPREAD);
    pace = plan_pace(way, between(SHARE_MEAN - SHARE_SPREAD, SHARE_MEAN + SHARE_SPREAD));
    const double cruise = between(CRUISE_LOW, CRUISE_HIGH);
    const double part = style == Style::CAUTIOUS ? CAUTIOUS_PART : 1.0;
    for (double& limit : pace) {
        limit = part * std::min(limit, cruise);
    }
}

LapEvent Driver::look() {
    const bool clock_stopped = last_frame_cycle > 0 && cycle[PLAYER_SLOT] == 0;
    const bool was_stopped = last_frame_speed > 0.0F && speed[PLAYER_SLOT] == 0.0F;
    last_frame_cycle = cycle[PLAYER_SLOT];
    last_frame_speed = speed[PLAYER_SLOT];
    if (was_stopped) { // brakes never stop a car completely; only being put back does
        current = way.nearest(car_place(), 0, way.size());
        straight_left = 0;
        pedal = Pedal::NONE;
        return LapEvent::RESET;
    }
    if (clock_stopped) {
        begin_lap();
        return LapEvent::LAP;
    }
    return LapEvent::NONE;
}

Point Driver::aim() const {
    const double ahead = AIM_CELLS + AIM_PER_SPEED * car_speed();
    const Place& target = way.at(current + static_cast<std::size_t>(ahead / PLACE_SPACING));
    const double left = std::clamp(line, std::min(0.0, EDGE_MARGIN - target.right),
                                   std::max(0.0, target.left - EDGE_MARGIN));
    const double across = (target.heading + 90.0) * DEG_TO_RAD;
    return {target.at.x + left * std::sin(across), target.at.y + left * std::cos(across)};
}

/// 1 left, -1 right, 0 neither.
int Driver::steer() {
    if (car_speed() >= SKID_SPEED && steer_count[PLAYER_SLOT] >= STEER_ROW_LIMIT &&
        straight_left == 0) {
        straight_left = STEER_ROW_PAUSE;
    }
    if (straight_left > 0) {
        --straight_left;
        return 0;
    }
    const Point target = aim();
    const Point car = car_place();
    const double wanted = std::atan2(target.x - car.x, target.y - car.y) / DEG_TO_RAD;
    const double error = std::remainder(wanted - static_cast<double>(heading[PLAYER_SLOT]), 360.0);
    const double half_step = (static_cast<double>(STEER_DEGREES) + car_speed()) / 2.0;
    if (std::abs(error) <= half_step) {
        return 0;
    }
    return error > 0.0 ? 1 : -1;
}

void Driver::choose_pedal() {
    constexpr double TOO_FAST = 0.03;
    constexpr double TOO_SLOW = 0.06;
    const auto next = static_cast<std::size_t>(car_speed() / PLACE_SPACING) + 1;
    const double planned = pace[(current + next) % pace.size()];
    if (car_speed() > planned + TOO_FAST) {
        pedal = Pedal::BRAKE;
    } else if (car_speed() < planned - TOO_SLOW) {
        pedal = Pedal::THROTTLE;
    } else if ((pedal == Pedal::BRAKE && car_speed() <= planned) ||
               (pedal == Pedal::THROTTLE && car_speed() >= planned)) {
        pedal = Pedal::NONE;
    }
}

int Driver::choose_shift() const {
    const std::int32_t number = gear[PLAYER_SLOT];
    if (number == 0) {
        return 1;
    }
    if (pedal == Pedal::THROTTLE && number < TOP_GEAR && car_speed() >= gear_end(number)) {
        return 1;
    }
    return number > 1 && car_speed() < SHIFT_DOWN_PART * gear_end(number - 1) ? -1 : 0;
}

void Driver::act() {
    current = way.nearest(car_place(), current, PLACES_PASSED);
    choose_pedal();
    keyboard.act({steer(), pedal == Pedal::THROTTLE, pedal == Pedal::BRAKE, choose_shift()});
}

} // namespace tarvik::demo
