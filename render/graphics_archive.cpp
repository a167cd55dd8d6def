// Reading the graphics archive.
#include "render/graphics_archive.h"

#include "render/sprite.h"
#include "shell/data_file.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>

namespace tarvik {

namespace {

static_assert(std::endian::native == std::endian::little, "records are read as they are");

std::int32_t claimed_bytes(const Sprite& sprite) {
    const std::uint32_t product = static_cast<std::uint32_t>(sprite.width) *
                                  static_cast<std::uint32_t>(sprite.height) *
                                  static_cast<std::uint32_t>(sprite.bytes_per_pixel);
    return static_cast<std::int32_t>(product);
}

/// `bytes` rounded up to whole pixels of three bytes.
std::size_t whole_pixels(std::size_t bytes) {
    return (bytes + 2) / 3 * 3;
}

/// Releases what a truncated or false record claimed and the file did not hold, except for the last
/// pixel begun, and keeps at least one byte so that `pixels` stays non-null.
void keep_bytes(Sprite& sprite, std::size_t bytes_read) {
    const std::size_t kept =
        std::clamp<std::size_t>(whole_pixels(bytes_read), 1, sprite.pixel_bytes);
    if (kept == sprite.pixel_bytes) {
        return;
    }
    if (void* shrunk = std::realloc(sprite.pixels, kept); shrunk != nullptr) {
        sprite.pixels = static_cast<std::uint8_t*>(shrunk);
        sprite.pixel_bytes = kept;
    }
}

/// The file, and what may still be taken from it.
struct Archive {
    DataFile file{".\\data\\graphics.dat"};
    std::size_t may_keep = MAX_PIXEL_BYTES;
    std::size_t may_skip = MAX_SKIPPED_BYTES;
    bool is_over = false; ///< the next record is out of reach
};

/// Moves on to the next record by reading, since the game's files cannot seek.
void skip(Archive& archive, std::size_t bytes) {
    if (bytes > archive.may_skip) {
        archive.is_over = true;
        return;
    }
    archive.may_skip -= bytes;
    std::uint8_t skipped[64 * 1024];
    while (bytes > 0) {
        const auto wanted = static_cast<DWORD>(std::min(bytes, sizeof skipped));
        if (archive.file.read(skipped, wanted) < wanted) {
            return;
        }
        bytes -= wanted;
    }
}

/// Reads `claimed` bytes of a sprite, as many of them into memory as may be kept. A sprite that
/// there is no memory for stays empty. The next record is found all the same: a start marker that
/// is far too large does not cost the player the mouse pointer.
void read_pixels(Archive& archive, Sprite& sprite, std::size_t claimed) {
    const std::size_t wanted = std::min({claimed, MAX_SPRITE_BYTES, archive.may_keep});
    sprite.pixel_bytes = std::clamp<std::size_t>(whole_pixels(wanted), 1, claimed);
    // Zeroed by calloc, so that a large claim costs no memory before the file backs it.
    sprite.pixels = static_cast<std::uint8_t*>(std::calloc(sprite.pixel_bytes, 1));
    if (sprite.pixels == nullptr) {
        sprite.width = 0;
        sprite.height = 0;
        sprite.bytes_per_pixel = 0;
        sprite.pixel_bytes = 0;
        skip(archive, claimed);
        return;
    }
    const std::size_t bytes_read = archive.file.read(sprite.pixels, static_cast<DWORD>(wanted));
    keep_bytes(sprite, bytes_read);
    archive.may_keep -= bytes_read;
    if (bytes_read == wanted) {
        skip(archive, claimed - wanted);
    }
}

void read_sprite(Archive& archive, Sprite& sprite) {
    if (archive.is_over) {
        return;
    }
    // Each field separately: where the end of the file cuts one off, its missing bytes stay 0.
    archive.file.read(&sprite.width, sizeof sprite.width);
    archive.file.read(&sprite.height, sizeof sprite.height);
    archive.file.read(&sprite.bytes_per_pixel, sizeof sprite.bytes_per_pixel);
    const std::int32_t claimed = claimed_bytes(sprite);
    if (claimed > 0) {
        read_pixels(archive, sprite, static_cast<std::size_t>(claimed));
    }
}

} // namespace

void load_graphics_archive() {
    Archive archive;
    if (!archive.file.is_open()) {
        return;
    }
    for (int i = 0; i < SPRITE_COUNT; ++i) {
        read_sprite(archive, sprite_table[i]);
    }
}

} // namespace tarvik
