// Steering at a point ahead, pedals after the planned pace, gears after the speed.
#include "tools/demo/pilot.h"

#include "race/car_controls.h"
#include "race/car_motion.h"
#include "race/heading.h"
#include "race/race_state.h"
#include "tools/demo/pace.h"

#include <algorithm>
#include <cmath>

namespace tarvik::demo {

namespace {

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

/// Speed at which a gear stops pulling.
double gear_end(std::int32_t gear) {
    return static_cast<double>(GEAR_RANGES[gear].below);
}

} // namespace

Pilot::Pilot(const Course& driven_course, Style driving_style, std::uint32_t seed)
    : course(driven_course), style(driving_style), luck(seed) {
    begin_lap();
}

void Pilot::begin_lap() {
    const auto between = [this](double low, double high) {
        return low + (high - low) * static_cast<double>(luck()) / 4294967296.0;
    };
    line = between(-LINE_SPREAD, LINE_SPREAD);
    pace = plan_pace(course, between(SHARE_MEAN - SHARE_SPREAD, SHARE_MEAN + SHARE_SPREAD));
    const double cruise = between(CRUISE_LOW, CRUISE_HIGH);
    const double part = style == Style::CAUTIOUS ? CAUTIOUS_PART : 1.0;
    for (double& limit : pace) {
        limit = part * std::min(limit, cruise);
    }
}

void Pilot::find_place(Point at) {
    current = course.nearest(at, 0, course.size());
    straight_left = 0;
    pedal = Pedal::NONE;
}

Point Pilot::aim(double speed) const {
    const double ahead = AIM_CELLS + AIM_PER_SPEED * speed;
    const std::size_t index = current + static_cast<std::size_t>(ahead / PLACE_SPACING);
    const Place& target = course.at(index);
    const double left = std::clamp(line, std::min(0.0, EDGE_MARGIN - target.right),
                                   std::max(0.0, target.left - EDGE_MARGIN));
    const double across = (target.heading + 90.0) * DEG_TO_RAD;
    return {target.at.x + left * std::sin(across), target.at.y + left * std::cos(across)};
}

int Pilot::steer(const CarView& car) {
    if (car.speed >= SKID_SPEED && car.steer_count >= STEER_ROW_LIMIT && straight_left == 0) {
        straight_left = STEER_ROW_PAUSE;
    }
    if (straight_left > 0) {
        --straight_left;
        return 0;
    }
    const Point target = aim(car.speed);
    const double wanted = std::atan2(target.x - car.at.x, target.y - car.at.y) / DEG_TO_RAD;
    const double error = std::remainder(wanted - car.heading, 360.0);
    const double half_step = (static_cast<double>(STEER_DEGREES) + car.speed) / 2.0;
    if (std::abs(error) <= half_step) {
        return 0;
    }
    return error > 0.0 ? 1 : -1;
}

void Pilot::choose_pedal(const CarView& car) {
    constexpr double TOO_FAST = 0.03;
    constexpr double TOO_SLOW = 0.06;
    const auto next = static_cast<std::size_t>(car.speed / PLACE_SPACING) + 1;
    const double planned = pace[(current + next) % pace.size()];
    if (car.speed > planned + TOO_FAST) {
        pedal = Pedal::BRAKE;
    } else if (car.speed < planned - TOO_SLOW) {
        pedal = Pedal::THROTTLE;
    } else if ((pedal == Pedal::BRAKE && car.speed <= planned) ||
               (pedal == Pedal::THROTTLE && car.speed >= planned)) {
        pedal = Pedal::NONE;
    }
}

int Pilot::choose_shift(const CarView& car) const {
    if (car.gear == 0) {
        return 1;
    }
    if (pedal == Pedal::THROTTLE && car.gear < TOP_GEAR && car.speed >= gear_end(car.gear)) {
        return 1;
    }
    if (car.gear > 1 && car.speed < SHIFT_DOWN_PART * gear_end(car.gear - 1)) {
        return -1;
    }
    return 0;
}

Wish Pilot::decide(const CarView& car) {
    current = course.nearest(car.at, current, PLACES_PASSED);
    choose_pedal(car);
    Wish wish;
    wish.steer = steer(car);
    wish.throttle = pedal == Pedal::THROTTLE;
    wish.brake = pedal == Pedal::BRAKE;
    wish.shift = choose_shift(car);
    return wish;
}

} // namespace tarvik::demo
