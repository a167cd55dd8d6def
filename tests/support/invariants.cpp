// The bounds of each value, as tight as the rules of the game make them.
#include "tests/support/invariants.h"

#include "platform/win32.h"
#include "race/car_controls.h"
#include "race/laps.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "render/text.h"
#include "shell/input.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace tarvik::test {

namespace {

// What the sixth gear's last pull leads to, from just below 3.3.
constexpr float HIGHEST_SPEED = 3.3F * 1.001F;
// A run is cut at 41 steps in the frame that reaches them; two steps a frame can make that 42.
constexpr std::int32_t MOST_STEERING_STEPS = 40;
constexpr int HISTORY_WRITTEN = 42;
// Where a float no longer grows by the largest step that is added to it.
constexpr float FARTHEST_CELL = 67108864.0F;    // 2^26, by up to 3.3 cells
constexpr float LARGEST_HEADING = 134217728.0F; // 2^27, by up to 4.5 degrees
constexpr float LARGEST_PENALTY = 16777216.0F;  // 2^24, by 1
constexpr std::int32_t LARGEST_CYCLE = CYCLE_LIMIT + 1;

/// The first fault that was found.
class Faults {
  public:
    template <typename T>
    void expect(bool holds, const char* what, T value) {
        if (!holds && first_.empty()) {
            char text[160];
            std::snprintf(text, sizeof text, "%s: %.9g", what, static_cast<double>(value));
            first_ = text;
        }
    }
    template <typename T>
    void expect_in(T low, T value, T high, const char* what) {
        expect(value >= low && value <= high, what, value); // no NaN either
    }
    std::string take() {
        return std::move(first_);
    }

  private:
    std::string first_;
};

void check_car(Faults& faults) {
    const int p = PLAYER_SLOT;
    faults.expect_in(0.0F, speed[p], HIGHEST_SPEED, "speed");
    faults.expect_in(-FARTHEST_CELL, car_x[p], FARTHEST_CELL, "car_x");
    faults.expect_in(-FARTHEST_CELL, car_y[p], FARTHEST_CELL, "car_y");
    faults.expect_in(-LARGEST_HEADING, heading[p], LARGEST_HEADING, "heading");
    faults.expect_in(0, gear[p], TOP_GEAR, "gear");
    faults.expect_in(0, steer_count[p], MOST_STEERING_STEPS, "steer_count");
    faults.expect(frames_since_steer[p] >= 0, "frames_since_steer", frames_since_steer[p]);
    faults.expect(frames_since_steer[p] < 2 || steer_count[p] == 0, "steer_count in no run",
                  steer_count[p]);
    for (int i = 0; i < STEER_HISTORY_SIZE; ++i) {
        const float reached = i < HISTORY_WRITTEN ? LARGEST_HEADING : 0.0F;
        faults.expect_in(-reached, steer_history[i], reached, "steer_history");
    }
}

void check_laps(Faults& faults) {
    const int p = PLAYER_SLOT;
    // A timed lap has counted its first frame by the end of that frame.
    faults.expect(cycle[p] == 0 || (cycle[p] >= 2 && cycle[p] <= LARGEST_CYCLE), "cycle", cycle[p]);
    faults.expect_in(0.0F, penalty[p], LARGEST_PENALTY, "penalty");
    faults.expect(penalty[p] == std::trunc(penalty[p]), "penalty not whole", penalty[p]);
    faults.expect(last_cycle[p] == 0 || last_cycle[p] > MIN_LAP_FRAMES, "last_cycle",
                  last_cycle[p]);
    faults.expect_in(MIN_LAP_FRAMES + 1, best_cycle[p], BEST_CYCLE_NONE, "best_cycle");
    faults.expect(last_cycle[p] == 0 || best_cycle[p] <= last_cycle[p], "best_cycle above the last",
                  best_cycle[p]);
    faults.expect_in(EASY, difficulty, ADVANCED, "difficulty");
    faults.expect_in(1, race_number, 2, "race_number");
}

/// The slots that no car uses, and the ghosts, which live in their buffers alone.
void check_other_slots(Faults& faults) {
    for (int slot = 0; slot < CAR_SLOTS; ++slot) {
        const bool in_use = slot >= PLAYER_SLOT && slot <= LAST_GHOST_SLOT;
        const Colour& colour = car_colour[slot];
        const std::int32_t light = colour.red + colour.green + colour.blue;
        faults.expect((light > 0) == in_use && light % 255 == 0, "car_colour of slot", slot);
        for (const float* values : {car_x, car_y, heading, speed, penalty}) {
            faults.expect(values[slot] == 0.0F || slot == PLAYER_SLOT, "values of slot", slot);
        }
        for (const std::int32_t* values :
             {gear, cycle, last_cycle, best_cycle, frames_since_steer, steer_count}) {
            faults.expect(values[slot] == 0 || slot == PLAYER_SLOT, "values of slot", slot);
        }
    }
}

/// Laps are recorded from entry 2 to entry LARGEST_CYCLE; the others never change.
void check_ghosts(Faults& faults) {
    for (int slot = PLAYER_SLOT; slot <= LAST_GHOST_SLOT; ++slot) {
        for (const std::int32_t entry : {0, 1, LARGEST_CYCLE + 1, GHOST_FRAMES - 1}) {
            faults.expect(ghost_x[slot][entry] == GHOST_NOWHERE &&
                              ghost_y[slot][entry] == GHOST_NOWHERE &&
                              ghost_heading[slot][entry] == GHOST_NO_HEADING,
                          "ghost entry", entry);
        }
    }
}

void check_view(Faults& faults) {
    const auto check = [&](const char* what, std::int32_t view, float car, std::int32_t shown,
                           std::int32_t cells) {
        const double first = std::trunc(static_cast<double>(car)) - shown / 2; // may be no number
        faults.expect(view == std::clamp(first, 0.0, static_cast<double>(cells - shown)), what,
                      view);
    };
    check("view_x", view_x, car_x[PLAYER_SLOT], LOGICAL_WIDTH, TRACK_WIDTH);
    check("view_y", view_y, car_y[PLAYER_SLOT], LOGICAL_HEIGHT, TRACK_HEIGHT);
    faults.expect_in(DEVICE_WIDTH, screen_width, DEVICE_WIDTH, "screen_width");
    faults.expect_in(DEVICE_HEIGHT, screen_height, DEVICE_HEIGHT, "screen_height");
}

void check_input(Faults& faults) {
    for (int key = 0; key < KEY_TABLE_SIZE; ++key) {
        faults.expect(key_down[key] == 0 || key_down[key] == 1, "key_down of key", key);
    }
    for (const int consumed : {KEY_GEAR_UP, KEY_GEAR_DOWN, VK_F1, VK_F2}) {
        faults.expect(key_down[consumed] == 0, "not consumed: key", consumed);
    }
    faults.expect_in(0, mouse_x, 0xFFFF, "mouse_x");
    faults.expect_in(0, mouse_y, 0xFFFF, "mouse_y");
    faults.expect_in(0, quit_requested, 1, "quit_requested");
}

} // namespace

Invariants::GhostBuffers Invariants::ghost_buffers() {
    GhostBuffers buffers;
    auto end = std::copy_n(ghost_x, CAR_SLOTS, buffers.begin());
    end = std::copy_n(ghost_y, CAR_SLOTS, end);
    std::copy_n(ghost_heading, CAR_SLOTS, end);
    // Laps pass a buffer on within its kind and among the ghosts only.
    for (auto kind = buffers.begin(); kind != buffers.end(); kind += CAR_SLOTS) {
        std::sort(kind + FIRST_GHOST_SLOT, kind + LAST_GHOST_SLOT + 1);
    }
    return buffers;
}

std::string Invariants::fault() const {
    Faults faults;
    faults.expect(std::memchr(text_buffer, '\0', TEXT_BUFFER_SIZE) != nullptr,
                  "end of the text within", TEXT_BUFFER_SIZE);
    faults.expect(ghost_buffers() == ghost_buffers_, "ghost buffers", 0);
    check_car(faults);
    check_laps(faults);
    check_other_slots(faults);
    check_ghosts(faults);
    check_view(faults);
    check_input(faults);
    return faults.take();
}

bool Invariants::is_picture_whole() {
    for (std::int32_t y = 0; y < DEVICE_HEIGHT; y += 2) {
        const std::uint8_t* row = pixel_at(0, y);
        if (std::memcmp(row, pixel_at(0, y + 1), ROW_BYTES) != 0) {
            return false;
        }
        for (std::ptrdiff_t at = 0; at < ROW_BYTES; at += 2 * PIXEL_BYTES) {
            if (std::memcmp(row + at, row + at + PIXEL_BYTES, PIXEL_BYTES) != 0) {
                return false;
            }
        }
    }
    return true;
}

} // namespace tarvik::test
