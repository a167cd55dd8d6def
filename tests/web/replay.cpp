// Replays the keys of a race in the browser on this system: tarvik-replay DATA FRAME KEY...
//
// KEY is "frame,1 or 0,code", the code as browsers call it: pressed or released before that frame
// takes its message. The pixels of frame FRAME go to standard output as the canvas has it, rows
// from the top down, red, green, blue and 255; what the game knows by then, as JSON, to standard
// error.
#include "platform/common/keys.h"
#include "race/race_state.h"
#include "shell/screen.h"
#include "tests/support/program.h"
#include "tests/support/temporary_folder.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tarvik;
using namespace tarvik::test;

void write_frame() {
    for (int y = 0; y < DEVICE_HEIGHT; ++y) {
        for (int x = 0; x < DEVICE_WIDTH; ++x) {
            const std::uint32_t pixel = shown_frame.at(x / 2, y / 2);
            for (const unsigned shift : {16U, 8U, 0U}) {
                std::putchar(static_cast<int>(pixel >> shift & 255U));
            }
            std::putchar(255);
        }
    }
}

void write_state() {
    std::fprintf(stderr, R"({"race":%d,"gear":%d,"speed":%g,"heading":%g,"y":%g,"cycle":%d})",
                 race_number, gear[PLAYER_SLOT], static_cast<double>(speed[PLAYER_SLOT]),
                 static_cast<double>(heading[PLAYER_SLOT]), static_cast<double>(car_y[PLAYER_SLOT]),
                 cycle[PLAYER_SLOT]);
}

} // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        return EXIT_FAILURE;
    }
    const auto file = [&](const std::string& name) {
        const std::string bytes = read_file(arguments[1] + ("/" + name));
        return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    };
    const int last = std::atoi(arguments[2]);
    install_data(file("race1.map"), file("race2.map"), file("graphics.dat"));
    return run_program(last, [&](int frame) {
        for (int i = 3; i < count; ++i) {
            int key_frame = 0;
            int down = 0;
            char code[32];
            if (std::sscanf(arguments[i], "%d,%d,%31s", &key_frame, &down, code) == 3 &&
                key_frame == frame) {
                const int virtual_key = virtual_key_of(place_of_web_code(code), 0, true);
                down != 0 ? press(virtual_key) : release(virtual_key);
            }
        }
        if (frame == last + 1) {
            write_frame();
            write_state();
        }
    });
}
