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
#include <vector>

namespace tarvik::fuzz {

namespace {

/// Cells of the grid that may no longer be as they were.
std::vector<std::span<std::uint8_t>> changed_cells;

/// Entries of the ghost laps that were recorded.
std::vector<std::int32_t> recorded_entries;

long frames_driven = 0;

/// Start and start/finish box are road.
std::uint8_t first_cell(std::size_t index) {
    constexpr std::size_t FIELD = 128; // cells to a side
    const std::size_t field = index % TRACK_WIDTH / FIELD * 7 + index / TRACK_WIDTH / FIELD * 3;
    return field % 5 == 1 ? CELL_OFF_TRACK : 0;
}

void restore_grid_and_ghosts() {
    for (const std::span<std::uint8_t> cells : changed_cells) {
        for (std::uint8_t& cell : cells) {
            cell = first_cell(static_cast<std::size_t>(&cell - track_grid));
        }
    }
    changed_cells.clear();
    for (const std::int32_t entry : recorded_entries) {
        for (int slot = PLAYER_SLOT; slot <= LAST_GHOST_SLOT; ++slot) {
            ghost_x[slot][entry] = GHOST_NOWHERE;
            ghost_y[slot][entry] = GHOST_NOWHERE;
            ghost_heading[slot][entry] = GHOST_NO_HEADING;
        }
    }
    recorded_entries.clear();
}

void reset_game() {
    restore_grid_and_ghosts();
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    }
    for (int key = 0; key < KEY_TABLE_SIZE; ++key) {
        scripted::hold_key(key, false);
        key_down[key] = 0;
    }
    mouse_x = 0;
    mouse_y = 0;
    quit_requested = 0;
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

std::span<std::uint8_t> changing_cells(std::int32_t first, std::int32_t count) {
    return changed_cells.emplace_back(track_grid + first, static_cast<std::size_t>(count));
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
    changing_cells(0, TRACK_WIDTH * TRACK_HEIGHT);
    std::atexit([] { std::fprintf(stderr, "frames driven: %ld\n", frames_driven); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarvik::fuzz::reset_game();
    tarvik::fuzz::Input input(data, size);
    tarvik::fuzz::play(input);
    return 0;
}
