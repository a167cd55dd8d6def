// Starting the game once and undoing what an input did.
#include "tests/fuzz/fuzz_game.h"

#include "game/start_up.h"
#include "platform/scripted/scripted.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/presentation.h"
#include "shell/input.h"
#include "tests/support/invariants.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fuzzer/FuzzedDataProvider.h>
#include <span>

namespace tarvik::fuzz {

namespace {

/// Cells of the grid that may no longer be as in the base map.
std::vector<std::span<std::uint8_t>> changed_cells;

/// Entries of the ghost laps that were recorded.
std::vector<std::int32_t> recorded_entries;

long frames_driven = 0;

void restore_grid() {
    for (const std::span<std::uint8_t> cells : changed_cells) {
        std::copy_n(base_map().data() + (cells.data() - track_grid), cells.size(), cells.data());
    }
    changed_cells.clear();
}

void restore_ghosts() {
    for (const std::int32_t entry : recorded_entries) {
        for (int slot = PLAYER_SLOT; slot <= LAST_GHOST_SLOT; ++slot) {
            ghost_x[slot][entry] = GHOST_NOWHERE;
            ghost_y[slot][entry] = GHOST_NOWHERE;
            ghost_heading[slot][entry] = GHOST_NO_HEADING;
        }
    }
    recorded_entries.clear();
}

void restore_input() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    }
    for (int key = 0; key < KEY_TABLE_SIZE; ++key) {
        scripted::hold_key(key, false);
    }
    std::fill_n(key_down, KEY_TABLE_SIZE, 0);
    mouse_x = 0;
    mouse_y = 0;
    quit_requested = 0;
}

void reset_game() {
    restore_grid();
    restore_ghosts();
    restore_input();
    scripted::memory_files.clear();
    scripted::memory_folder_exists = true;
    reset_car();
    best_cycle[PLAYER_SLOT] = BEST_CYCLE_NONE;
    std::fill_n(steer_history, STEER_HISTORY_SIZE, 0.0F);
    difficulty = ADVANCED;
    race_number = 1;
    view_x = 0;
    view_y = 0;
    tarvik::srand(1);
}

} // namespace

void require(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "finding: %s\n", what.c_str());
        std::abort();
    }
}

const std::vector<std::uint8_t>& base_map() {
    static const std::vector<std::uint8_t> map = [] {
        constexpr std::size_t FIELD = 128; // cells to a side
        std::vector<std::uint8_t> cells(TRACK_MAP_BYTES);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const std::size_t field = i % TRACK_WIDTH / FIELD * 7 + i / TRACK_WIDTH / FIELD * 3;
            cells[i] = field % 5 == 1 ? CELL_OFF_TRACK : 0; // start and start/finish box are road
        }
        return cells;
    }();
    return map;
}

void paint(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height,
           std::uint8_t value) {
    const std::int32_t right = std::min(left + width, TRACK_WIDTH);
    const std::int32_t bottom = std::min(top + height, TRACK_HEIGHT);
    left = std::max(left, 0);
    for (std::int32_t y = std::max(top, 0); y < bottom && left < right; ++y) {
        std::uint8_t* row = track_grid + static_cast<std::ptrdiff_t>(y) * TRACK_WIDTH;
        std::fill(row + left, row + right, value);
        changed_cells.emplace_back(row + left, row + right);
    }
}

void mark_loaded(std::size_t cells) {
    changed_cells.emplace_back(track_grid, std::min<std::size_t>(cells, TRACK_MAP_BYTES));
}

void run_frame() {
    constexpr std::uint64_t ALL_WAITS_MS = 400 + 300 + 300 + 300; // F1, F2, A, Z
    const std::uint64_t slept_before = scripted::slept_ms;
    if (cycle[PLAYER_SLOT] > 0) {
        recorded_entries.push_back(cycle[PLAYER_SLOT]);
    }
    const std::clock_t start = std::clock();
    race_frame();
    ++frames_driven;
    const std::clock_t taken = std::clock() - start;
    const std::string fault = test::find_fault();
    require(fault.empty(), fault);
    require(scripted::slept_ms - slept_before <= ALL_WAITS_MS, "a frame waits too long");
    require(taken <= CLOCKS_PER_SEC, "a frame takes more than a second");
}

} // namespace tarvik::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    using namespace tarvik;
    using namespace tarvik::fuzz;
    scripted::use_memory_files = true;
    start_up();
    clear_frame();
    mark_loaded(TRACK_MAP_BYTES);
    std::atexit([] { std::fprintf(stderr, "frames driven: %ld\n", frames_driven); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvik::fuzz::reset_game();
    tarvik::fuzz::Input input(data, size);
    tarvik::fuzz::play(input);
    return 0;
}
