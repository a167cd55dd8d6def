// Whole frames on a hostile track: any messages, any keys, the car anywhere that driving can bring
// it, all switches, maps of any length, sprites of any claim under the marker and the pointer.
#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/laps.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "render/graphics_archive.h"
#include "render/presentation.h"
#include "render/sprite.h"
#include "render/sprite_drawing.h"
#include "shell/input.h"
#include "tests/fuzz/fuzz_game.h"
#include "tests/support/program.h"

#include <algorithm>
#include <cmath>
#include <fuzzer/FuzzedDataProvider.h>

namespace tarvik::fuzz {

namespace {

constexpr int FRAMES = 48;        // of an input, at most
constexpr int TRACK_SWITCHES = 2; // likewise; each refills 240 MB

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
    switch (input.ConsumeIntegralInRange(0, 4)) {
    case 0:
        return input.ConsumeFloatingPointInRange(0.0F, 9999.99F);
    case 1:
        return input.ConsumeFloatingPointInRange(-FARTHEST, FARTHEST);
    case 2:
        return input.PickValueInArray(PLACES) + input.ConsumeFloatingPointInRange(-NEAR, NEAR);
    default:
        return input.PickValueInArray(BORDERS) + input.ConsumeFloatingPointInRange(-NEAR, NEAR);
    }
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

void paint_something(Input& input) {
    const auto x = static_cast<std::int32_t>(coordinate(input));
    const auto y = static_cast<std::int32_t>(coordinate(input));
    const std::int32_t width = input.ConsumeIntegral<std::uint8_t>();
    const std::int32_t height = input.ConsumeIntegral<std::uint8_t>();
    paint(x, y, width, height, input.ConsumeIntegral<std::uint8_t>());
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

scripted::File& put_map_file(Input& input, const char* name) {
    scripted::File& file = scripted::memory_files[name];
    file.bytes = input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, 64));
    file.bytes.resize(map_length(input), input.ConsumeIntegral<std::uint8_t>());
    file.read_only = input.ConsumeIntegralInRange(0, 7) == 0;
    scripted::memory_folder_exists = input.ConsumeIntegralInRange(0, 7) != 0;
    mark_loaded(file.bytes.size());
    return file;
}

/// By itself or by the race's keys. The grid has to have the file's cells from the first one on,
/// then those that were there before.
void load_map(Input& input) {
    const bool second = input.ConsumeBool();
    const scripted::File& file = put_map_file(input, second ? "data/race2.map" : "data/race1.map");
    if (input.ConsumeIntegralInRange(0, 7) == 1) {
        std::int32_t& key = key_down[second ? VK_OEM_6 : VK_OEM_4];
        key = 1;
        run_frame();
        key = 0;
        require(race_number == (second ? 2 : 1), "not the track that was asked for");
    } else {
        load_track_map(second ? ".\\data\\race2.map" : ".\\data\\race1.map");
    }
    const bool is_readable = !file.read_only && scripted::memory_folder_exists;
    const std::size_t loaded =
        is_readable ? std::min<std::size_t>(file.bytes.size(), TRACK_MAP_BYTES) : 0;
    const std::size_t after = std::min<std::size_t>(TRACK_MAP_BYTES - loaded, 1000000);
    require(std::equal(track_grid, track_grid + loaded, file.bytes.begin()),
            "cells differ from the file's");
    const std::uint8_t* rest = base_map().data() + loaded;
    require(std::equal(rest, rest + after, track_grid + loaded),
            "cells after the file's end have changed");
}

test::Image some_image(Input& input, int number) {
    const auto size = [&] {
        return input.ConsumeBool() ? input.ConsumeIntegralInRange(1, 40)
                                   : input.ConsumeIntegral<std::int32_t>();
    };
    test::Image image{number, size(), size(), size(), {}};
    image.bytes.assign(input.ConsumeIntegral<std::uint16_t>(),
                       input.ConsumeIntegral<std::uint8_t>());
    return image;
}

void load_sprites(Input& input) {
    scripted::memory_files["data/graphics.dat"].bytes =
        test::archive_of({some_image(input, START_MARKER_IMAGE), some_image(input, CURSOR_IMAGE)});
    release_sprite_table();
    create_sprite_table();
    load_graphics_archive();
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

/// What happens before the next frame.
void act(Input& input) {
    switch (input.ConsumeIntegralInRange(0, 15)) {
    case 0:
        return post_any_message(input);
    case 1:
        return post_message(WM_MOUSEMOVE, 0, input.ConsumeIntegral<LPARAM>());
    case 2:
        return scripted::hold_key(input.ConsumeIntegral<std::uint8_t>(), input.ConsumeBool());
    case 3:
        return place_car(input);
    case 4:
        return set_steering(input);
    case 5:
        return set_lap(input);
    case 6:
        return paint_something(input);
    case 7:
        put_map_file(input, input.ConsumeBool() ? "data/race1.map" : "data/race2.map");
        return;
    case 8:
        return switch_track(input);
    case 9:
    case 10:
        return post_message(WM_KEYUP, input.PickValueInArray(GAME_KEYS), 0);
    default:
        return post_message(WM_KEYDOWN, input.PickValueInArray(GAME_KEYS), 0);
    }
}

void drive(Input& input) {
    int switches = 0;
    for (int frame = 0; frame < FRAMES && quit_requested == 0 && switches < TRACK_SWITCHES &&
                        input.remaining_bytes() > 0;) {
        act(input);
        for (int count = input.ConsumeIntegralInRange(0, 3); count > 0 && quit_requested == 0;
             --count, ++frame) {
            run_frame();
            if (is_down(VK_OEM_4) || is_down(VK_OEM_6)) {
                ++switches;
                break;
            }
        }
    }
}

} // namespace

void play(Input& input) {
    tarvik::srand(input.ConsumeIntegral<std::uint32_t>());
    difficulty = input.ConsumeIntegralInRange(EASY, ADVANCED);
    if (input.ConsumeIntegralInRange(0, 3) == 0) {
        load_sprites(input);
    }
    if (input.ConsumeIntegralInRange(0, 3) == 1) {
        load_map(input);
    }
    drive(input);
    if (quit_requested != 0) { // as the program ends
        clear_frame();
        present_frame();
    }
    test::drawn_picture(); // throws if a logical pixel is not of one colour
}

} // namespace tarvik::fuzz
