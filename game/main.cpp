// Program entry and main loop.
#include "game/start_up.h"
#include "platform/win32.h"
#include "race/race_frame.h"
#include "race/track_grid.h"
#include "race/view.h"
#include "render/presentation.h"
#include "shell/input.h"
#include "shell/window.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    using namespace tarvik;

    instance_handle = instance;
    start_up();
    load_track_map(".\\data\\race1.map");
    view_x = 0;
    view_y = 0;
    while (quit_requested == 0) {
        race_frame();
    }
    clear_frame(); // the last frame shown is black
    present_frame();
    shut_down();
    return 0;
}
