// Running the game on the scripted platform.
#include "tests/support/program.h"

#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/track_grid.h"
#include "render/sprite.h"

#include <algorithm>

namespace tarvik::test {

Picture shown_picture;

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
    scripted::set_picture_hook(
        [](const std::uint8_t* pixels, int, int) { shown_picture = picture_of(pixels); });
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

std::vector<std::uint8_t> archive_of(const std::vector<Image>& images) {
    std::vector<std::uint8_t> archive;
    for (int number = 0; number < SPRITE_COUNT; ++number) {
        const auto image = std::find_if(images.begin(), images.end(), [number](const Image& each) {
            return each.number == number;
        });
        if (image == images.end()) {
            archive.insert(archive.end(), 12, 0);
            continue;
        }
        const std::int32_t header[] = {image->width, image->height, image->bytes_per_pixel};
        const auto* header_bytes = reinterpret_cast<const std::uint8_t*>(header);
        archive.insert(archive.end(), header_bytes, header_bytes + sizeof header);
        archive.insert(archive.end(), image->bytes.begin(), image->bytes.end());
    }
    return archive;
}

Image plain_image(int number, int side, std::uint32_t colour) {
    Image image{number, side, side, 3, {}};
    for (int i = 0; i < side * side; ++i) {
        for (const unsigned shift : {16U, 8U, 0U}) {
            image.bytes.push_back(static_cast<std::uint8_t>(colour >> shift));
        }
    }
    return image;
}

void install_data(std::vector<std::uint8_t> race1, std::vector<std::uint8_t> race2,
                  std::vector<std::uint8_t> archive) {
    scripted::use_memory_files = true;
    scripted::memory_files["data/race1.map"].bytes = std::move(race1);
    scripted::memory_files["data/race2.map"].bytes = std::move(race2);
    scripted::memory_files["data/graphics.dat"].bytes = std::move(archive);
}

} // namespace tarvik::test
