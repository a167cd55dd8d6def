// The ring's map, and a driver that goes round it with exactly rounded arithmetic only.
#include "tests/support/ring.h"

#include "platform/driver.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "shell/input.h"
#include "tests/support/program.h"

#include <algorithm>
#include <vector>

namespace tarvik::test {

namespace {

// Centre and middle radius, cells; the road leads through the start/finish box.
constexpr std::int64_t RING_X = 2950;
constexpr std::int64_t RING_Y = 2400;
constexpr std::int64_t RING_RADIUS = 550;
constexpr std::int64_t HALF_WIDTH = 70;
constexpr double FRAMES_AHEAD = 30.0; // how far the driver looks
constexpr double TOLERANCE = 2.0;     // cells off the middle line

struct Driver {
    bool holds_up = false;
    int held_arrow = 0;
    int frames_to_next_shift = 0;
    double last_x = car_x[PLAYER_SLOT]; // where the car was a frame ago
    double last_y = car_y[PLAYER_SLOT];
};
Driver driver;

/// Which arrow turns the car towards where the ring's middle line will be, or none.
int wanted_arrow(double x, double y) {
    const double from_centre_x = x - RING_X;
    const double from_centre_y = y - RING_Y;
    const double square = from_centre_x * from_centre_x + from_centre_y * from_centre_y;
    const double outward =
        ((x - driver.last_x) * from_centre_x + (y - driver.last_y) * from_centre_y) / RING_RADIUS;
    // (r^2 - R^2) / 2R is close to r - R, without a square root.
    const double off = (square - RING_RADIUS * RING_RADIUS) / (2.0 * RING_RADIUS);
    const double off_soon = off + FRAMES_AHEAD * outward;
    if (off_soon > TOLERANCE) {
        return VK_RIGHT;
    }
    return off_soon < -TOLERANCE ? VK_LEFT : 0;
}

/// The road on noisy grass.
std::vector<std::uint8_t> ring_map() {
    std::vector<std::uint8_t> map = plain_map(CELL_OFF_TRACK);
    constexpr std::int64_t INNER = (RING_RADIUS - HALF_WIDTH) * (RING_RADIUS - HALF_WIDTH);
    constexpr std::int64_t OUTER = (RING_RADIUS + HALF_WIDTH) * (RING_RADIUS + HALF_WIDTH);
    for (std::int64_t y = RING_Y - 900; y < RING_Y + 900; ++y) {
        for (std::int64_t x = RING_X - 1000; x < RING_X + 1000; ++x) {
            const std::int64_t square = (x - RING_X) * (x - RING_X) + (y - RING_Y) * (y - RING_Y);
            std::uint8_t& cell = map[static_cast<std::size_t>(y * TRACK_WIDTH + x)];
            if (square > INNER && square < OUTER) {
                cell = static_cast<std::uint8_t>((x ^ y) % 2 * 255); // 0 and 255 are both road
            } else if (x * 31 % 97 == y * 17 % 89) {
                cell = 2; // so is this, here and there on the grass
            }
        }
    }
    return map;
}

/// A marker with a picture on it and a pointer with holes.
std::vector<std::uint8_t> pictures_archive() {
    Image marker = plain_image(30, 16, 0x091EC8);
    Image pointer = plain_image(250, 12, 0xFAFAFA);
    for (std::size_t i = 0; i < marker.bytes.size(); i += 7) {
        marker.bytes[i] = static_cast<std::uint8_t>(i);
    }
    for (std::size_t i = 0; i < pointer.bytes.size(); i += 15) {
        std::fill_n(pointer.bytes.begin() + static_cast<std::ptrdiff_t>(i), 3, std::uint8_t{0});
    }
    return archive_of({marker, pointer});
}

} // namespace

void install_ring_data() {
    std::vector<std::uint8_t> checks = ring_map();
    checks.resize(checks.size() / 2); // the second half stays that of the first track
    for (std::size_t i = 0; i < checks.size(); i += 3) {
        checks[i] = CELL_OFF_TRACK;
    }
    install_data(ring_map(), std::move(checks), pictures_archive());
}

void restart_on_ring(std::uint32_t seed) {
    MSG left_over{};
    while (PeekMessageA(&left_over, nullptr, 0, 0, PM_REMOVE) != 0) {
    }
    std::fill(std::begin(key_down), std::end(key_down), 0);
    mouse_x = mouse_y = 0;
    difficulty = ADVANCED;
    race_number = 1;
    load_track_map(".\\data\\race1.map");
    reset_race();
    view_x = view_y = 0;
    take_wheel();
    srand(seed);
}

void drive_ring(std::int32_t wanted_gear) {
    const double x = car_x[PLAYER_SLOT];
    const double y = car_y[PLAYER_SLOT];
    if (gear[PLAYER_SLOT] < wanted_gear && --driver.frames_to_next_shift <= 0) {
        press('A');
        release('A');
        driver.frames_to_next_shift = 90;
    } else if (!driver.holds_up) {
        press(VK_UP);
        driver.holds_up = true;
    } else if (const int wanted = wanted_arrow(x, y); driver.held_arrow == 0 && wanted != 0) {
        press(wanted);
        driver.held_arrow = wanted;
    } else if (wanted != driver.held_arrow) { // one message at a time
        release(driver.held_arrow);
        driver.held_arrow = 0;
    }
    driver.last_x = x;
    driver.last_y = y;
}

void take_wheel() {
    driver = {};
}

} // namespace tarvik::test
