// The real game under the desktop layer, driven by a controller that SDL makes up.
#include "tests/desktop/play_fixture.h"

#include "platform/desktop/display.h"
#include "platform/driver.h"
#include "race/race_state.h"
#include "shell/input.h"

#include <SDL.h>

#include <cstdlib>

#include <unistd.h>

namespace tarvik {

namespace {

/// A step of the test: what is done, and what it has to cause within some frames. A step without a
/// condition checks, after `STILL` frames, whether Up is down.
struct Step {
    const char* what;
    void (*act)();
    bool (*comes)();
};

constexpr int PATIENCE = 600;
constexpr int STILL = 10;

const Player* player = nullptr;
int device = -1;
SDL_Joystick* controller = nullptr;

void plug_in() {
    SDL_VirtualJoystickDesc description{};
    description.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
    description.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
    description.naxes = SDL_CONTROLLER_AXIS_MAX;
    description.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
    device = SDL_JoystickAttachVirtualEx(&description);
    controller = SDL_JoystickOpen(device);
}

bool is_listened_to() {
    return SDL_GameControllerFromInstanceID(SDL_JoystickInstanceID(controller)) != nullptr;
}

void press(SDL_GameControllerButton button) {
    SDL_JoystickSetVirtualButton(controller, button, 1);
}

void pull_trigger(bool down) {
    SDL_JoystickSetVirtualAxis(controller, SDL_CONTROLLER_AXIS_TRIGGERRIGHT,
                               down ? SDL_JOYSTICK_AXIS_MAX : SDL_JOYSTICK_AXIS_MIN);
}

constexpr Step STEPS[] = {
    {"plugged in while the game runs", plug_in, is_listened_to},
    {"the shoulder shifts", [] { press(SDL_CONTROLLER_BUTTON_RIGHTSHOULDER); },
     [] { return gear[PLAYER_SLOT] == 1; }},
    {"the trigger drives", [] { pull_trigger(true); }, [] { return speed[PLAYER_SLOT] > 0.15F; }},
    {"the stick steers",
     [] { SDL_JoystickSetVirtualAxis(controller, SDL_CONTROLLER_AXIS_LEFTX, -32768); },
     [] { return is_down(VK_LEFT) && heading[PLAYER_SLOT] != 0; }},
    {"the keyboard holds Up too", [] { player->press(XK_Up); },
     [] { return GetAsyncKeyState(VK_UP) < 0; }},
    {"the keyboard lets go of it", [] { player->release(XK_Up); }, nullptr},
    {"both again", [] { player->press(XK_Up); }, nullptr},
    {"the trigger lets go of it", [] { pull_trigger(false); }, nullptr},
    {"the trigger alone",
     [] {
         pull_trigger(true);
         player->release(XK_Up);
     },
     nullptr},
    {"unplugged, it holds nothing",
     [] {
         SDL_JoystickClose(controller);
         SDL_JoystickDetachVirtual(device);
     },
     [] { return !is_down(VK_UP) && !is_down(VK_LEFT); }},
    {"plugged in again", plug_in, is_listened_to},
    {"Start ends the race", [] { press(SDL_CONTROLLER_BUTTON_START); },
     [] { return quit_requested == 1; }},
};

const Step* step = STEPS;
int frames_in_step = 0;

void play_on() {
    if (frames_in_step > 0 && (step->comes != nullptr ? step->comes() : frames_in_step == STILL)) {
        if (step->comes == nullptr) {
            EXPECT_TRUE(is_down(VK_UP)) << step->what;
        }
        EXPECT_LE(gear[PLAYER_SLOT], 1) << "a held shoulder does not repeat";
        ++step;
        frames_in_step = 0;
    }
    if (step == std::end(STEPS) || frames_in_step > PATIENCE) {
        quit_requested = 1;
        return;
    }
    if (frames_in_step++ == 0) {
        step->act();
    }
}

using Play = PlayTest;

} // namespace

TEST_F(Play, AControllerDrivesWheneverItIsPluggedIn) {
    setenv("DISPLAY", server_.display().c_str(), 1);
    unsetenv("WAYLAND_DISPLAY");
    ASSERT_EQ(chdir(folder_.c_str()), 0);
    player = &player_;
    open_display_or_exit();
    set_frame_hook(play_on);
    char no_command_line[] = "";
    EXPECT_EQ(WinMain(GetModuleHandleA(nullptr), nullptr, no_command_line, SW_SHOW), 0);
    // No later frame could check the frame that ends the race.
    EXPECT_EQ(step, std::end(STEPS) - 1) << step->what;
    EXPECT_TRUE(frames_in_step <= PATIENCE && GetAsyncKeyState(VK_ESCAPE) < 0);
    close_display();
}

} // namespace tarvik
