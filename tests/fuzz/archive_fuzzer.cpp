// Graphics archives of any content, and every sprite drawn at and beyond every edge and corner of
// the view; what is drawn is compared with the plainest drawing there is.
#include "platform/scripted/scripted.h"
#include "render/frame_buffer.h"
#include "render/graphics_archive.h"
#include "render/presentation.h"
#include "render/sprite.h"
#include "render/sprite_drawing.h"
#include "shell/input.h"
#include "tests/fuzz/fuzz_game.h"
#include "tests/support/program.h"

#include <algorithm>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>

namespace tarvik::fuzz {

namespace {

using DrawSprite = void (*)(std::int32_t, std::int32_t, std::int32_t);

constexpr std::int32_t LEAST = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t MOST = std::numeric_limits<std::int32_t>::max();

std::int32_t some_size(Input& input) {
    constexpr std::int32_t SIZES[] = {1,     3,     16,      26754,    32768, 37838, 46340,
                                      46341, 65536, 1 << 30, MOST - 1, MOST,  LEAST, -1};
    const int kind = input.ConsumeIntegralInRange(0, 3);
    if (kind > 1) {
        return input.ConsumeIntegralInRange(0, 400);
    }
    return kind == 0 ? input.PickValueInArray(SIZES) : input.ConsumeIntegral<std::int32_t>();
}

/// One in two is the marker or the pointer, which a frame draws.
test::Image some_image(Input& input) {
    int number = input.ConsumeIntegralInRange(0, SPRITE_COUNT - 1);
    if (number % 2 == 0) {
        number = number % 4 == 0 ? START_MARKER_IMAGE : CURSOR_IMAGE;
    }
    const std::int32_t width = some_size(input);
    const std::int32_t height = input.ConsumeBool() ? some_size(input) : width;
    const std::int32_t depth = input.ConsumeBool() ? 3 : some_size(input);
    test::Image image{number, width, height, depth, {}};
    const auto some =
        input.ConsumeBytes<std::uint8_t>(input.ConsumeIntegralInRange<std::size_t>(0, 300));
    const auto count = input.ConsumeIntegral<std::uint16_t>();
    for (std::size_t i = 0; i < count && !some.empty(); ++i) {
        image.bytes.push_back(some[i % some.size()]);
    }
    return image;
}

/// The input as it stands, or an archive of a few images with whatever they claim, and cut short.
std::vector<std::uint8_t> some_archive(Input& input) {
    if (input.ConsumeIntegralInRange(0, 3) == 0) {
        return input.ConsumeRemainingBytes<std::uint8_t>();
    }
    std::vector<test::Image> images;
    for (int count = input.ConsumeIntegralInRange(0, 4); count > 0; --count) {
        images.push_back(some_image(input));
    }
    std::vector<std::uint8_t> bytes = test::archive_of(images);
    if (input.ConsumeBool()) {
        bytes.resize(input.ConsumeIntegralInRange<std::size_t>(0, bytes.size()));
    }
    return bytes;
}

/// Draws pixel by pixel, in the order of the file, into a picture of words, and compares.
void compare_drawing(DrawSprite draw, std::int32_t x, std::int32_t y, std::int32_t n) {
    clear_frame();
    draw(x, y, n);

    std::vector<std::uint32_t> expected(std::size_t{LOGICAL_WIDTH} * LOGICAL_HEIGHT, test::BLACK);
    const Sprite& sprite = sprite_table[n];
    const auto held = static_cast<std::int64_t>(sprite.pixel_bytes / 3);
    const std::int64_t least = draw == draw_sprite_clamped ? 0 : LEAST;
    for (std::int64_t i = 0; i < held && i / sprite.width < sprite.width; ++i) {
        const std::uint8_t* pixel = sprite.pixels + 3 * i;
        const std::uint32_t colour =
            std::uint32_t{pixel[0]} << 16U | std::uint32_t{pixel[1]} << 8U | pixel[2];
        const std::int64_t at_x = std::max<std::int64_t>(least, x + i % sprite.width);
        const std::int64_t at_y = std::max<std::int64_t>(least, y + i / sprite.width);
        if (colour != SPRITE_TRANSPARENT && at_x >= 0 && at_x < LOGICAL_WIDTH && at_y >= 0 &&
            at_y < LOGICAL_HEIGHT) {
            expected[static_cast<std::size_t>(at_y * LOGICAL_WIDTH + at_x)] = colour;
        }
    }
    require(test::drawn_frame().pixels == expected, "a pixel differs from the plain drawing's");
}

/// At the edges of the view and as far beyond them as numbers go.
std::vector<std::int32_t> places(std::int32_t view, std::int32_t side) {
    return {LEAST,       LEAST + 1, -7607, -side, 1 - side, -1,          0,   1,
            view - side, view - 1,  view,  2392,  65535,    MOST - side, MOST};
}

void draw_sprites(Input& input) {
    std::int64_t left = 20000; // pixels of sprites, so that no input takes long
    for (std::int32_t n = 0; n < SPRITE_COUNT; ++n) {
        if (sprite_table[n].width <= 0 || left < 0) {
            continue;
        }
        left -= static_cast<std::int64_t>(sprite_table[n].pixel_bytes / 3 + 1000);
        const std::int32_t side = std::min(sprite_table[n].width, 1 << 20);
        for (const std::int32_t x : places(LOGICAL_WIDTH, side)) {
            for (const std::int32_t y : places(LOGICAL_HEIGHT, side)) {
                draw_sprite(x, y, n);
                draw_sprite_clamped(x, y, n);
            }
        }
        const auto place = [&] {
            return input.ConsumeBool() ? input.ConsumeIntegralInRange(-400, 400)
                                       : input.ConsumeIntegral<std::int32_t>();
        };
        const std::int32_t x = place();
        const std::int32_t y = place();
        compare_drawing(draw_sprite, x, y, n);
        compare_drawing(draw_sprite_clamped, x, y, n);
    }
    for (const std::int32_t n : {LEAST, -1, SPRITE_COUNT, MOST}) {
        draw_sprite(0, 0, n);
        draw_sprite_clamped(0, 0, n);
    }
}

} // namespace

void play(Input& input) {
    mouse_x = input.ConsumeIntegral<std::uint16_t>();
    mouse_y = input.ConsumeIntegral<std::uint16_t>();
    scripted::memory_files["data/graphics.dat"].bytes = some_archive(input);
    release_sprite_table();
    create_sprite_table();
    load_graphics_archive();
    draw_sprites(input);
    run_frame();
}

} // namespace tarvik::fuzz
