// The real game under the desktop layer, driven by a controller that SDL makes up.
#include "tests/desktop/play_fixture.h"

#include "game/start_up.h"
#include "platform/desktop/display.h"
#include "platform/win32.h"
#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/track_grid.h"
#include "shell/input.h"

#include <SDL.h>

#include <cstdlib>

namespace tarvik {

namespace {

int device = -1;
SDL_Joystick* controller = nullptr;

/// Plays on until a condition holds; false when it does not for a long time.
bool comes(bool (*condition)()) {
    for (int frame = 0; frame < 600 && !condition(); ++frame) {
        race_frame();
    }
    return condition();
}

/// And waits until the game listens to it.
bool plug_in() {
    SDL_VirtualJoystickDesc description{};
    description.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
    description.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
    description.naxes = SDL_CONTROLLER_AXIS_MAX;
    description.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
    device = SDL_JoystickAttachVirtualEx(&description);
    controller = SDL_JoystickOpen(device);
    return comes([] {
        return SDL_GameControllerFromInstanceID(SDL_JoystickInstanceID(controller)) != nullptr;
    });
}

void pull_trigger(bool down) {
    SDL_JoystickSetVirtualAxis(controller, SDL_CONTROLLER_AXIS_TRIGGERRIGHT,
                               down ? SDL_JOYSTICK_AXIS_MAX : SDL_JOYSTICK_AXIS_MIN);
}

bool up_stays_down() {
    for (int frame = 0; frame < 10; ++frame) {
        race_frame();
    }
    return is_down(VK_UP);
}

} // namespace

TEST_F(Play, AControllerDrivesWheneverItIsPluggedIn) {
    setenv("DISPLAY", server_.display().c_str(), 1);
    unsetenv("WAYLAND_DISPLAY");
    std::filesystem::current_path(folder_);
    open_display_or_exit();
    start_up();
    load_track_map(".\\data\\race1.map");
    race_frame();
    ASSERT_TRUE(plug_in());
    SDL_JoystickSetVirtualButton(controller, SDL_CONTROLLER_BUTTON_RIGHTSHOULDER, 1);
    EXPECT_TRUE(comes([] { return gear[PLAYER_SLOT] == 1; }));
    pull_trigger(true);
    EXPECT_TRUE(comes([] { return speed[PLAYER_SLOT] > 0.15F; }));
    SDL_JoystickSetVirtualAxis(controller, SDL_CONTROLLER_AXIS_LEFTX, SDL_JOYSTICK_AXIS_MIN);
    EXPECT_TRUE(comes([] { return is_down(VK_LEFT) && heading[PLAYER_SLOT] != 0; }));

    player_.tap(XK_Up);
    EXPECT_TRUE(up_stays_down()) << "the keyboard lets go of it";
    player_.press(XK_Up);
    EXPECT_TRUE(up_stays_down());
    pull_trigger(false);
    EXPECT_TRUE(up_stays_down()) << "the trigger lets go of it";
    player_.release(XK_Up);
    EXPECT_EQ(gear[PLAYER_SLOT], 1) << "a held shoulder does not repeat";

    SDL_JoystickClose(controller);
    SDL_JoystickDetachVirtual(device);
    EXPECT_TRUE(comes([] { return !is_down(VK_UP) && !is_down(VK_LEFT); }));
    EXPECT_TRUE(plug_in());
    SDL_JoystickSetVirtualButton(controller, SDL_CONTROLLER_BUTTON_START, 1);
    EXPECT_TRUE(comes([] { return quit_requested == 1; }));
    shut_down();
    close_display();
}

} // namespace tarvik
