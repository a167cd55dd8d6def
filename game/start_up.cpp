// The fixed orders of start-up and shutdown.
#include "game/start_up.h"

#include "platform/win32.h"
#include "race/race_state.h"
#include "race/random.h"
#include "race/track_grid.h"
#include "render/frame_buffer.h"
#include "render/graphics_archive.h"
#include "render/sprite.h"
#include "render/text.h"
#include "shell/window.h"

#include <ctime>

namespace tarvik {

void start_up() {
    create_game_window(); // gives the frame buffer its size
    ShowCursor(FALSE);
    create_frame_buffer();
    init_race_state();
    create_track_grid();
    create_text_buffer();
    create_sprite_table();
    load_graphics_archive();
    srand(static_cast<std::uint32_t>(std::time(nullptr)));
}

void shut_down() {
    release_frame_buffer();
    release_track_grid();
    release_text_buffer();
    release_sprite_table();
    destroy_game_window();
}

} // namespace tarvik
