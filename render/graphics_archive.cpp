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

static_assert(std::endian::native == std::endian::little, "records are read as they stand");

std::int32_t claimed_bytes(const Sprite& sprite) {
    const std::uint32_t product = static_cast<std::uint32_t>(sprite.width) *
                                  static_cast<std::uint32_t>(sprite.height) *
                                  static_cast<std::uint32_t>(sprite.bytes_per_pixel);
    return static_cast<std::int32_t>(product);
}

/// Gives back what a cut or lying record claimed and the file did not hold, down to the last
/// pixel of three bytes that was begun, and at least one byte so that `pixels` stays non-null.
void keep_bytes(Sprite& sprite, std::size_t bytes_read) {
    const std::size_t whole_pixels = (bytes_read + 2) / 3 * 3;
    const std::size_t kept = std::clamp<std::size_t>(whole_pixels, 1, sprite.pixel_bytes);
    if (kept == sprite.pixel_bytes) {
        return;
    }
    if (void* shrunk = std::realloc(sprite.pixels, kept); shrunk != nullptr) {
        sprite.pixels = static_cast<std::uint8_t*>(shrunk);
        sprite.pixel_bytes = kept;
    }
}

/// What may still be taken from the archive, bytes.
struct Allowance {
    std::size_t kept = MAX_PIXEL_BYTES;
    std::size_t skipped = MAX_SKIPPED_BYTES;
};

/// Takes the file to the next record, or uses the allowance up. Files can only be read, not sought
/// in.
void skip(DataFile& archive, std::size_t bytes, Allowance& allowance) {
    std::uint8_t skipped[64 * 1024];
    bytes = std::min(bytes, allowance.skipped);
    allowance.skipped -= bytes;
    while (bytes > 0) {
        const auto wanted = static_cast<DWORD>(std::min(bytes, sizeof skipped));
        if (archive.read(skipped, wanted) < wanted) {
            return;
        }
        bytes -= wanted;
    }
}

/// Reads `claimed` bytes of a sprite, the first of them into memory: no more than half of what is
/// left of the allowance, so that no sprite leaves the later ones without. Lowers the allowance by
/// what the file held. The records after a huge one are read all the same: a huge start marker
/// does not cost the player the mouse pointer.
void read_pixels(DataFile& archive, Sprite& sprite, std::size_t claimed, Allowance& allowance) {
    const std::size_t wanted = std::min(claimed, allowance.kept / 2);
    sprite.pixel_bytes = std::max<std::size_t>(wanted, 1);
    // Zeroed by calloc, so that a huge claim costs no memory before the file backs it.
    sprite.pixels = static_cast<std::uint8_t*>(std::calloc(sprite.pixel_bytes, 1));
    if (sprite.pixels == nullptr) {
        sprite.width = 0;
        sprite.height = 0;
        sprite.bytes_per_pixel = 0;
        sprite.pixel_bytes = 0;
        skip(archive, claimed, allowance);
        return;
    }
    const std::size_t bytes_read = archive.read(sprite.pixels, static_cast<DWORD>(wanted));
    keep_bytes(sprite, bytes_read);
    allowance.kept -= bytes_read;
    if (bytes_read == wanted) {
        skip(archive, claimed - wanted, allowance);
    }
}

void read_sprite(DataFile& archive, Sprite& sprite, Allowance& allowance) {
    // Each field by itself: one that the end of the file cuts keeps 0 in what is missing.
    archive.read(&sprite.width, sizeof sprite.width);
    archive.read(&sprite.height, sizeof sprite.height);
    archive.read(&sprite.bytes_per_pixel, sizeof sprite.bytes_per_pixel);
    const std::int32_t claimed = claimed_bytes(sprite);
    if (claimed > 0) {
        read_pixels(archive, sprite, static_cast<std::size_t>(claimed), allowance);
    }
}

} // namespace

void load_graphics_archive() {
    DataFile archive(".\\data\\graphics.dat");
    if (!archive.is_open()) {
        return;
    }
    Allowance allowance;
    for (int i = 0; i < SPRITE_COUNT && allowance.skipped > 0; ++i) {
        read_sprite(archive, sprite_table[i], allowance);
    }
}

} // namespace tarvik
