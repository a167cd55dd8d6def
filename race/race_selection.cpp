// The keys that change the race itself.
#include "race/race_selection.h"

#include "platform/win32.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"

#include <algorithm>
#include <cstdio>

namespace tarvik {

namespace {

constexpr std::int32_t FIRST_RACE = 1;
constexpr std::int32_t LAST_RACE = 2;
constexpr DWORD F1_WAIT_MS = 400;
constexpr DWORD F2_WAIT_MS = 300;

void hold_game(int virtual_key, DWORD milliseconds) {
    key_down[virtual_key] = 0;
    Sleep(milliseconds);
    key_down[virtual_key] = 0;
}

/// At either end the number stays, and the same track is loaded again.
void switch_track(std::int32_t number) {
    race_number = std::clamp(number, FIRST_RACE, LAST_RACE);
    char file_name[32];
    std::snprintf(file_name, sizeof file_name, ".\\data\\race%d.map", race_number);
    load_track_map(file_name);
    reset_race();
}

} // namespace

void handle_race_keys() {
    if (is_down(VK_F1)) {
        hold_game(VK_F1, F1_WAIT_MS);
    }
    if (is_down(VK_F2)) {
        hold_game(VK_F2, F2_WAIT_MS);
    }
    // Bracket presses are not consumed: a held bracket loads its track in every frame.
    if (is_down(VK_OEM_4)) {
        switch_track(race_number - 1);
    }
    if (is_down(VK_OEM_6)) {
        switch_track(race_number + 1);
    }
    for (std::int32_t level = EASY; level <= ADVANCED; ++level) {
        if (is_down('0' + level)) {
            difficulty = level;
        }
    }
}

} // namespace tarvik
