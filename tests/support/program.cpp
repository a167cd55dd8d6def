// Running the game on the scripted platform.
#include "tests/support/program.h"

#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/track_grid.h"

namespace tarvik::test {

Frame shown_frame;

namespace {

int frame_number = 0;
int last_frame = 0;
const FrameScript* frame_script = nullptr;

void on_frame() {
    ++frame_number;
    if (*frame_script) {
        (*frame_script)(frame_number);
    }
    if (frame_number == last_frame + 1) {
        post_message(WM_CLOSE, 0, 0);
    }
}

} // namespace

int run_program(int frames, const FrameScript& script) {
    frame_number = 0;
    last_frame = frames;
    frame_script = &script;
    set_frame_hook(on_frame);
    scripted::set_frame_hook(
        [](const std::uint8_t* pixels, int, int) { shown_frame = drawn_frame(pixels); });
    scripted::use_memory_files = true;
    return WinMain(nullptr, nullptr, nullptr, 0);
}

void press(int virtual_key) {
    post_message(WM_KEYDOWN, static_cast<WPARAM>(virtual_key), 1);
}

void release(int virtual_key) {
    post_message(WM_KEYUP, static_cast<WPARAM>(virtual_key), 1);
}

std::vector<std::uint8_t> plain_map(std::uint8_t value) {
    return std::vector<std::uint8_t>(TRACK_MAP_BYTES, value);
}

void install_data(std::vector<std::uint8_t> race1, std::vector<std::uint8_t> race2,
                  std::vector<std::uint8_t> archive) {
    scripted::use_memory_files = true;
    scripted::memory_files["data/race1.map"].bytes = std::move(race1);
    scripted::memory_files["data/race2.map"].bytes = std::move(race2);
    scripted::memory_files["data/graphics.dat"].bytes = std::move(archive);
}

} // namespace tarvik::test
