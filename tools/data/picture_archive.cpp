// The graphics archive: numbered pictures packed into one file.
//
// The file is PICTURE_COUNT records, one for each sprite number from 0, without a header. A record
// is width, height and bytes per pixel (32-bit signed, little-endian) and the pixel bytes: the top
// row first, each pixel red, green, blue. A number without a picture has a record of 12 zero bytes.
// Black (0, 0, 0) is transparent.
#include "tools/data/picture_archive.h"

#include "tools/files/failure.h"
#include "tools/files/png_file.h"
#include "tools/files/whole_file.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

void append_int32(std::vector<std::uint8_t>& bytes, int value) {
    for (const int shift : {0, 8, 16, 24}) {
        bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

// The sprite number that a file name begins with: "030.png", "30.png", "250-pointer.png".
int number_of(const fs::path& file) {
    const std::string stem = file.stem().string();
    const std::size_t digits = std::min(stem.find_first_not_of("0123456789"), stem.size());
    const bool numbered =
        digits > 0 && digits <= 9 && (digits == stem.size() || stem[digits] == '-');
    if (!numbered) {
        throw Failure(file.string() +
                      ": the name must be a sprite number, as in 030.png or 250-pointer.png");
    }
    const int number = std::stoi(stem.substr(0, digits));
    if (number >= PICTURE_COUNT) {
        throw Failure(file.string() + ": sprite numbers end at " +
                      std::to_string(PICTURE_COUNT - 1));
    }
    return number;
}

std::map<int, fs::path> numbered_files(const fs::path& folder) {
    std::error_code error;
    std::map<int, fs::path> files;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const fs::path& file = entries->path();
        if (ending(file) != ".png") {
            continue;
        }
        const auto [place, is_new] = files.emplace(number_of(file), file);
        if (!is_new) {
            throw Failure(std::min(place->second, file).string() + " and " +
                          std::max(place->second, file).string() + " have the same number");
        }
    }
    if (error) {
        throw Failure("cannot read " + folder.string() + ": " + error.message());
    }
    if (files.empty()) {
        throw Failure("no PNG files in " + folder.string());
    }
    return files;
}

void append_picture(std::vector<std::uint8_t>& bytes, const Picture& picture) {
    for (const int field : {picture.width, picture.height, 3}) {
        append_int32(bytes, field);
    }
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
        const std::uint8_t* pixel = &picture.rgba[i];
        const bool solid = pixel[3] >= 128; // there is no blending in the game
        for (std::size_t component = 0; component < 3; ++component) {
            bytes.push_back(solid ? pixel[component] : std::uint8_t{0});
        }
    }
}

} // namespace

void pack_pictures(const fs::path& folder, const fs::path& archive) {
    const std::map<int, fs::path> files = numbered_files(folder);
    std::vector<std::uint8_t> bytes;
    for (int number = 0; number < PICTURE_COUNT; ++number) {
        const auto file = files.find(number);
        if (file == files.end()) {
            bytes.insert(bytes.end(), 12, 0);
        } else {
            append_picture(bytes, read_square_png(file->second, LARGEST_PICTURE));
        }
    }
    write_whole_file(archive, bytes);
}

} // namespace tarvik
