// The graphics archive: numbered pictures packed into one file, and out of it again.
//
// The file is PICTURE_COUNT records, one for each sprite number from 0, without a header. A record
// is width, height and bytes per pixel (32-bit signed, little-endian) and the pixel bytes: the top
// row first, each pixel red, green, blue. A number without a picture has a record of 12 zero bytes.
// Black (0, 0, 0) is transparent.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace tarvik {

inline constexpr int PICTURE_COUNT = 1400;
inline constexpr int LARGEST_PICTURE = 1024; ///< pixels to a side; the game's view has 320 by 240

/// One record of the archive.
struct PictureRecord {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bytes_per_pixel = 0;
    std::vector<std::uint8_t> pixels;

    [[nodiscard]] bool is_empty() const {
        return width == 0 && height == 0 && bytes_per_pixel == 0;
    }
    /// True for what the game can draw: a square of three bytes a pixel.
    [[nodiscard]] bool is_picture() const {
        return width > 0 && width == height && bytes_per_pixel == 3;
    }
};

/// Reads every record. Throws a Failure that names the first one that is neither empty nor a
/// picture or that the file cuts off.
std::vector<PictureRecord> read_archive(const std::filesystem::path& archive);

/// Packs the PNG files of a folder whose names begin with a sprite number.
void pack_pictures(const std::filesystem::path& folder, const std::filesystem::path& archive);

/// Writes each picture to the folder (made if missing) as its number in three digits, "030.png".
void unpack_pictures(const std::filesystem::path& archive, const std::filesystem::path& folder);

/// Prints number and size of each picture.
void list_pictures(const std::filesystem::path& archive, std::ostream& out);

} // namespace tarvik
