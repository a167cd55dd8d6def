// The race state's memory and its resets.
#include "race/race_state.h"

#include "shell/out_of_memory.h"

#include <algorithm>

namespace tarvik {

float car_x[CAR_SLOTS];
float car_y[CAR_SLOTS];
float heading[CAR_SLOTS];
float speed[CAR_SLOTS];
std::int32_t gear[CAR_SLOTS];
float penalty[CAR_SLOTS];
std::int32_t cycle[CAR_SLOTS];
std::int32_t last_cycle[CAR_SLOTS];
std::int32_t best_cycle[CAR_SLOTS];
std::int32_t frames_since_steer[CAR_SLOTS];
std::int32_t steer_count[CAR_SLOTS];
Colour car_colour[CAR_SLOTS];
float steer_history[STEER_HISTORY_SIZE];
float** ghost_x = nullptr;
float** ghost_y = nullptr;
float** ghost_heading = nullptr;
std::int32_t difficulty = ADVANCED;
std::int32_t race_number = 1;

namespace {

void clear_ghost(int slot) {
    std::fill_n(ghost_x[slot], GHOST_FRAMES, GHOST_NOWHERE);
    std::fill_n(ghost_y[slot], GHOST_FRAMES, GHOST_NOWHERE);
    std::fill_n(ghost_heading[slot], GHOST_FRAMES, GHOST_NO_HEADING);
}

} // namespace

void init_race_state() {
    ghost_x = allocate_buffer<float*>(CAR_SLOTS, "ghost laps");
    ghost_y = allocate_buffer<float*>(CAR_SLOTS, "ghost laps");
    ghost_heading = allocate_buffer<float*>(CAR_SLOTS, "ghost laps");
    for (int slot = 0; slot < CAR_SLOTS; ++slot) {
        ghost_x[slot] = allocate_buffer<float>(GHOST_FRAMES, "ghost laps");
        ghost_y[slot] = allocate_buffer<float>(GHOST_FRAMES, "ghost laps");
        ghost_heading[slot] = allocate_buffer<float>(GHOST_FRAMES, "ghost laps");
        clear_ghost(slot);
    }

    reset_car();
    best_cycle[PLAYER_SLOT] = BEST_CYCLE_NONE;

    car_colour[PLAYER_SLOT] = {255, 255, 255};
    car_colour[2] = {255, 0, 0};
    car_colour[3] = {0, 0, 255};
    car_colour[4] = {0, 255, 0};
    car_colour[5] = {255, 255, 0};
    car_colour[6] = {0, 255, 255};
}

void reset_car() {
    car_x[PLAYER_SLOT] = START_X;
    car_y[PLAYER_SLOT] = START_Y;
    heading[PLAYER_SLOT] = START_HEADING;
    speed[PLAYER_SLOT] = 0.0F;
    frames_since_steer[PLAYER_SLOT] = 0;
    steer_count[PLAYER_SLOT] = 0;
    cycle[PLAYER_SLOT] = 0;
    last_cycle[PLAYER_SLOT] = 0;
    gear[PLAYER_SLOT] = 0;
    penalty[PLAYER_SLOT] = 0.0F;
}

void reset_race() {
    for (int slot = 0; slot < CAR_SLOTS; ++slot) {
        clear_ghost(slot);
    }
    reset_car();
    best_cycle[PLAYER_SLOT] = BEST_CYCLE_NONE;
}

} // namespace tarvik
