// A lap's frames are only recorded during the drive, and evaluated at its end.
#include "tools/demo/report.h"

#include "platform/win32.h"
#include "race/race_state.h"
#include "shell/input.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tarvik::demo {

namespace {

constexpr double FRAMES_A_SECOND = 60.0;
/// A bend turns by more than this, radians a cell, and by so many degrees in all.
constexpr double LEAST_BEND = 1.0 / 500.0;
constexpr double LEAST_TURN = 30.0;
/// Braking to less than this part of the speed is a braking zone.
constexpr double BRAKED_PART = 0.6;
/// A braking zone is over when the car is faster again by this factor.
constexpr double FASTER_AGAIN = 1.1;

} // namespace

void Report::note_frame() {
    if (cycle[PLAYER_SLOT] > 0) {
        lap.push_back({{car_x[PLAYER_SLOT], car_y[PLAYER_SLOT]},
                       speed[PLAYER_SLOT],
                       gear[PLAYER_SLOT],
                       is_down(VK_DOWN),
                       is_down(VK_LEFT) || is_down(VK_RIGHT)});
    }
}

void Report::end_lap(int result) {
    if (fastest.empty() || result < fastest_result) {
        fastest_result = result;
        fastest.swap(lap);
    }
    lap.clear();
}

void Report::break_off() {
    lap.clear();
}

void Report::print_shares() const {
    const auto count = static_cast<double>(fastest.size());
    const auto print_share = [&](const char* what, auto&& holds) {
        const auto frames =
            static_cast<double>(std::count_if(fastest.begin(), fastest.end(), holds));
        std::printf("  %-12s %5.1f s %5.1f %%\n", what, frames / FRAMES_A_SECOND,
                    100.0 * frames / count);
    };
    for (int number = 1; number <= TOP_GEAR; ++number) {
        const char name[] = {'g', 'e', 'a', 'r', ' ', static_cast<char>('0' + number), '\0'};
        print_share(name, [number](const Frame& frame) { return frame.gear == number; });
    }
    print_share("braking", [](const Frame& frame) { return frame.braking; });
    print_share("on the wheel", [](const Frame& frame) { return frame.steering; });
}

void Report::print_braking_zones() const {
    int zones = 0;
    double fast = 0.0;
    for (std::size_t i = 0; i < fastest.size(); ++i) {
        fast = std::max(fast, fastest[i].speed);
        if (fastest[i].speed >= BRAKED_PART * fast) {
            continue;
        }
        double slow = fastest[i].speed;
        for (; i < fastest.size() && fastest[i].speed < FASTER_AGAIN * slow; ++i) {
            slow = std::min(slow, fastest[i].speed);
        }
        const Point at = fastest[std::min(i, fastest.size() - 1)].at;
        std::printf("  braking zone %d before (%.0f, %.0f): speed %.2f to %.2f\n", ++zones, at.x,
                    at.y, fast, slow);
        fast = 0.0;
    }
    std::printf("  braking zones: %d\n", zones);
}

void Report::print_bend(int number, double degrees, const Place& apex, Stretch frames) const {
    const auto begin = fastest.begin() + static_cast<std::ptrdiff_t>(frames.first);
    const auto end = fastest.begin() + static_cast<std::ptrdiff_t>(frames.last) + 1;
    const auto slowest = std::min_element(
        begin, end, [](const Frame& a, const Frame& b) { return a.speed < b.speed; });
    std::printf("  bend %2d at (%4.0f, %4.0f): %-5s %3.0f degrees, entry %.2f, slowest %.2f, "
                "gear %d\n",
                number, apex.at.x, apex.at.y, degrees > 0.0 ? "left" : "right", std::fabs(degrees),
                begin->speed, slowest->speed, slowest->gear);
}

void Report::print(const Course& middle) const {
    if (fastest.empty()) {
        return;
    }
    std::printf("fastest lap: %d, %.1f s at 60 frames a second, %.0f cells\n", fastest_result,
                static_cast<double>(fastest.size()) / FRAMES_A_SECOND,
                PLACE_SPACING * static_cast<double>(middle.size()));
    print_shares();
    print_braking_zones();
    // The frame in which the car passes each place.
    std::vector<std::size_t> frame_at(middle.size(), fastest.size() - 1);
    std::size_t place = 0;
    for (std::size_t i = 0; i < fastest.size(); ++i) {
        const std::size_t now = middle.nearest(fastest[i].at, place, middle.size() / 20);
        for (; place < now; ++place) {
            frame_at[place] = i;
        }
    }
    int number = 0;
    for (std::size_t i = 0; i < middle.size();) {
        const std::size_t first = i;
        const bool left = middle.at(i).bend > 0.0;
        double degrees = 0.0;
        std::size_t apex = i;
        for (; i < middle.size() && std::abs(middle.at(i).bend) > LEAST_BEND &&
               (middle.at(i).bend > 0.0) == left;
             ++i) {
            degrees += std::remainder(middle.at(i + 1).heading - middle.at(i).heading, 360.0);
            if (std::abs(middle.at(i).bend) > std::abs(middle.at(apex).bend)) {
                apex = i;
            }
        }
        if (std::fabs(degrees) >= LEAST_TURN) {
            print_bend(++number, degrees, middle.at(apex), {frame_at[first], frame_at[i - 1]});
        }
        i = std::max(i, first + 1);
    }
}

} // namespace tarvik::demo
