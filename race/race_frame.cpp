// Swapping two steps changes the game: each relies on what has been drawn and set so far.
#include "race/race_frame.h"

#include "platform/win32.h"
#include "race/car_controls.h"
#include "race/car_motion.h"
#include "race/crash.h"
#include "race/ghosts.h"
#include "race/laps.h"
#include "race/race_selection.h"
#include "race/race_state.h"
#include "race/track_view.h"
#include "race/view.h"
#include "render/presentation.h"
#include "render/sprite_drawing.h"
#include "render/text.h"
#include "shell/input.h"
#include "shell/message_pump.h"

#include <cstdio>

namespace tarvik {

namespace {

void draw_overlay_line(const char* line, std::int32_t y) {
    std::snprintf(text_buffer, TEXT_BUFFER_SIZE, "%s", line);
    draw_text(12, y, 255, 255, 0);
}

void draw_overlay_texts() {
    draw_overlay_line("WIN32TARVIK001", 14);
    draw_overlay_line("Press A,Z,UP,DOWN,LEFT,RIGHT,ESCAPE,1,2,3,[,]", 216);
    draw_overlay_line("Tarvik: six gears, two tracks, five ghosts and you", 226);
}

} // namespace

void race_frame() {
    clear_frame();
    pump_messages(); // may set quit_requested
    if (quit_requested == 0) {
        draw_track_and_hud();
    }
    handle_race_keys();

    ++frames_since_steer[PLAYER_SLOT];
    if (is_key_pressed(VK_ESCAPE) == 1) {
        quit_requested = 1;
    }
    steer();
    end_steering_run();
    apply_throttle();
    apply_brake();
    shift_gear_up();
    shift_gear_down();

    prepare_move();
    record_lap_frame(); // where the car was before the move, pointing where it does now
    move_car();
    draw_car_and_test_road();
    apply_crash_rules();
    draw_sprite_clamped(BOX_LEFT - view_x, BOX_TOP - view_y, START_MARKER_IMAGE);
    check_lap();
    draw_overlay_texts();
    advance_lap_clock();
    draw_ghosts();

    follow_car(); // for the next frame
    if (quit_requested == 0) {
        // Device pixels taken as logical ones: the pointer image moves twice as far as the mouse.
        draw_sprite(mouse_x, mouse_y, CURSOR_IMAGE);
        present_frame();
    }
}

} // namespace tarvik
