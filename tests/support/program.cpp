// Running the game on the scripted platform.
#include "tests/support/program.h"

#include "platform/driver.h"
#include "platform/scripted/scripted.h"
#include "race/track_grid.h"

#include <algorithm>

namespace tarvik::test {

bool keep_pictures = false;
std::vector<Picture> pictures;

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

void on_picture(const std::uint8_t* pixels, int width, int height) {
    if (!keep_pictures) {
        pictures.clear();
    }
    const auto size = static_cast<std::size_t>(width * height) * 3;
    pictures.push_back({{pixels, pixels + size}, width, height});
}

void append_integer(std::vector<std::uint8_t>& bytes, std::int32_t value) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> shift));
    }
}

} // namespace

int run_program(int frames, const FrameScript& script) {
    frame_number = 0;
    last_frame = frames;
    frame_script = &script;
    set_frame_hook(on_frame);
    scripted::set_picture_hook(on_picture);
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

void fill_cells(std::vector<std::uint8_t>& map, int left, int top, int width, int height,
                std::uint8_t value) {
    for (int y = top; y < top + height; ++y) {
        std::fill_n(map.begin() + static_cast<std::ptrdiff_t>(y) * TRACK_WIDTH + left, width,
                    value);
    }
}

std::vector<std::uint8_t> archive_of(const std::vector<Image>& images) {
    std::vector<std::uint8_t> bytes;
    for (int number = 0; number < 1400; ++number) {
        const auto image = std::find_if(images.begin(), images.end(), [number](const Image& each) {
            return each.number == number;
        });
        if (image == images.end()) {
            bytes.insert(bytes.end(), 12, 0);
            continue;
        }
        append_integer(bytes, image->width);
        append_integer(bytes, image->height);
        append_integer(bytes, image->bytes_per_pixel);
        bytes.insert(bytes.end(), image->bytes.begin(), image->bytes.end());
    }
    return bytes;
}

Image plain_image(int number, int side, Pixel colour) {
    Image image{number, side, side, 3, {}};
    for (int i = 0; i < side * side; ++i) {
        image.bytes.push_back(static_cast<std::uint8_t>(colour.red));
        image.bytes.push_back(static_cast<std::uint8_t>(colour.green));
        image.bytes.push_back(static_cast<std::uint8_t>(colour.blue));
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
