// Whole frames on a hostile track: any messages, any keys, the car anywhere that driving can bring
// it, all switches, maps of any length.
#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "shell/input.h"
#include "tests/fuzz/fuzz_game.h"
#include "tests/support/frame.h"

#include <algorithm>
#include <cmath>
#include <fuzzer/FuzzedDataProvider.h>

namespace tarvik::fuzz {

namespace {

constexpr int FRAMES = 48;        // of an input, at most
constexpr int SWITCH_FRAMES = 24; // what a track switch counts for, as it takes so long

constexpr WPARAM GAME_KEYS[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, 'A',   'Z',
                                '1',   '2',     '3',     VK_F1,    VK_F2, VK_ESCAPE};
constexpr UINT MESSAGES[] = {WM_DESTROY,     WM_CLOSE,     WM_KEYDOWN,     WM_KEYUP,
                             WM_SYSCOMMAND,  WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP,
                             WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MBUTTONDOWN, WM_MBUTTONUP};

/// Somewhere on the grid, near one of its places that matter, or as far off as a car can get.
float coordinate(Input& input) {
    constexpr float FARTHEST = 67108864.0F;
    constexpr float BORDERS[] = {0.0F, 10000.0F};
    constexpr float PLACES[] = {160.0F, 9840.0F, 9880.0F, BOX_TOP + BOX_SIZE, -FARTHEST / 2};
    constexpr float NEAR = 14.0F; // more than the car's size
    const int kind = input.ConsumeIntegralInRange(0, 4);
    if (kind == 0) {
        return input.ConsumeFloatingPointInRange(0.0F, 9999.99F);
    }
    if (kind == 1) {
        return input.ConsumeFloatingPointInRange(-FARTHEST, FARTHEST);
    }
    const float place =
        kind == 2 ? input.PickValueInArray(PLACES) : input.PickValueInArray(BORDERS);
    return place + input.ConsumeFloatingPointInRange(-NEAR, NEAR);
}

void place_car(Input& input) {
    const int p = PLAYER_SLOT;
    if (input.ConsumeBool()) {
        car_x[p] = coordinate(input);
        car_y[p] = coordinate(input);
    } else { // at the start/finish box, where a lap may be complete
        car_x[p] = 2400.0F + input.ConsumeFloatingPointInRange(-9.0F, 9.0F);
        car_y[p] = 2400.0F + input.ConsumeFloatingPointInRange(-9.0F, 9.0F);
        cycle[p] = input.ConsumeBool() ? MIN_LAP_FRAMES + 1 : 0;
    }
    heading[p] = input.ConsumeFloatingPointInRange(-720.0F, 720.0F);
    speed[p] = input.ConsumeFloatingPointInRange(0.0F, 3.3033F);
    gear[p] = input.ConsumeIntegralInRange(0, TOP_GEAR);
}

void set_steering(Input& input) {
    heading[PLAYER_SLOT] = input.ConsumeFloatingPointInRange(-134217728.0F, 134217728.0F);
    steer_count[PLAYER_SLOT] = input.ConsumeIntegralInRange(0, 40);
    frames_since_steer[PLAYER_SLOT] = input.ConsumeIntegralInRange(0, 1);
}

void set_lap(Input& input) {
    const int p = PLAYER_SLOT;
    cycle[p] = input.ConsumeBool() ? input.ConsumeIntegralInRange(2, 990001)
                                   : input.PickValueInArray({0, 2, 299, 300, 301, 990000, 990001});
    penalty[p] = std::trunc(input.ConsumeFloatingPointInRange(0.0F, 16777216.0F));
    last_cycle[p] = 0;
    best_cycle[p] = input.ConsumeIntegralInRange(301, BEST_CYCLE_NONE);
}

void paint(Input& input) {
    const auto left = static_cast<std::int32_t>(coordinate(input));
    const auto top = static_cast<std::int32_t>(coordinate(input));
    const std::int32_t right = std::min(left + input.ConsumeIntegral<std::uint8_t>(), TRACK_WIDTH);
    const std::int32_t bottom = std::min(top + input.ConsumeIntegral<std::uint8_t>(), TRACK_HEIGHT);
    const auto value = input.ConsumeIntegral<std::uint8_t>();
    const std::int32_t first = std::max(left, 0);
    for (std::int32_t y = std::max(top, 0); y < bottom && first < right; ++y) {
        std::ranges::fill(changing_cells(y * TRACK_WIDTH + first, right - first), value);
    }
}

/// Seldom the length of a whole map, which takes as long as a hundred frames.
std::size_t map_length(Input& input) {
    constexpr std::size_t ROW = TRACK_WIDTH;
    constexpr std::size_t ALL = TRACK_MAP_BYTES;
    constexpr std::size_t LENGTHS[] = {0,         1,       ROW - 1, ROW,     ROW + 1,
                                       ALL - ROW, ALL - 1, ALL,     ALL + 1, ALL + ROW};
    return input.ConsumeIntegralInRange(0, 15) == 1 ? input.PickValueInArray(LENGTHS)
                                                    : input.ConsumeIntegral<std::uint16_t>();
}

/// Returns its name.
const char* put_map_file(Input& input) {
    const char* name = input.ConsumeBool() ? "data/race1.map" : "data/race2.map";
    scripted::File& file = scripted::memory_files[name];
    file.bytes = input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, 64));
    file.bytes.resize(map_length(input), input.ConsumeIntegral<std::uint8_t>());
    file.read_only = input.ConsumeIntegralInRange(0, 7) == 0;
    scripted::memory_folder_exists = input.ConsumeIntegralInRange(0, 7) != 0;
    const std::size_t cells = std::min<std::size_t>(file.bytes.size(), TRACK_MAP_BYTES);
    changing_cells(0, static_cast<std::int32_t>(cells));
    return name;
}

void post_any_message(Input& input) {
    const UINT message =
        input.ConsumeBool() ? input.PickValueInArray(MESSAGES) : input.ConsumeIntegral<UINT>();
    WPARAM wparam = input.ConsumeIntegral<WPARAM>();
    if (input.ConsumeBool()) { // a key, or just none
        wparam = input.ConsumeIntegralInRange<WPARAM>(0, KEY_TABLE_SIZE + 3);
    } else if (input.ConsumeBool()) {
        wparam = KEY_TABLE_SIZE;
    }
    post_message(message, wparam, input.ConsumeIntegral<LPARAM>());
}

/// Rarely, as a switch takes as long as a hundred frames.
void switch_track(Input& input) {
    if (input.ConsumeIntegral<std::uint8_t>() == 1) {
        post_message(WM_KEYDOWN, input.ConsumeBool() ? VK_OEM_4 : VK_OEM_6, 0);
    }
}

void press_game_key(Input& input) {
    post_message(WM_KEYDOWN, input.PickValueInArray(GAME_KEYS), 0);
}

/// What may happen before a frame if no game key is pressed.
constexpr void (*ACTS[])(Input&) = {
    post_any_message,
    [](Input& input) { post_message(WM_MOUSEMOVE, 0, input.ConsumeIntegral<LPARAM>()); },
    [](Input& input) {
        scripted::hold_key(input.ConsumeIntegral<std::uint8_t>(), input.ConsumeBool());
    },
    place_car,
    set_steering,
    set_lap,
    paint,
    [](Input& input) { put_map_file(input); },
    switch_track,
    [](Input& input) { post_message(WM_KEYUP, input.PickValueInArray(GAME_KEYS), 0); },
    [](Input& input) { post_message(WM_KEYUP, input.PickValueInArray(GAME_KEYS), 0); }};

} // namespace

void play(Input& input) {
    tarvik::srand(input.ConsumeIntegral<std::uint32_t>());
    difficulty = input.ConsumeIntegralInRange(EASY, ADVANCED);
    if (input.ConsumeIntegralInRange(0, 3) == 1) {
        load_track_map(put_map_file(input));
    }
    for (int left = FRAMES; left > 0 && quit_requested == 0 && input.remaining_bytes() > 0;) {
        const auto act = input.ConsumeIntegralInRange<std::size_t>(0, 15);
        (act < std::size(ACTS) ? ACTS[act] : press_game_key)(input);
        for (int count = input.ConsumeIntegralInRange(0, 3);
             count > 0 && left > 0 && quit_requested == 0; --count) {
            run_frame();
            left -= is_down(VK_OEM_4) || is_down(VK_OEM_6) ? SWITCH_FRAMES : 1;
        }
    }
    test::drawn_frame(); // throws if a logical pixel is not of one colour
}

} // namespace tarvik::fuzz
