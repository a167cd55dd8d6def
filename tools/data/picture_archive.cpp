// The graphics archive: numbered pictures packed into one file, and out of it again.
#include "tools/data/picture_archive.h"

#include "tools/files/failure.h"
#include "tools/files/new_file.h"
#include "tools/files/png_file.h"
#include "tools/files/whole_file.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <map>
#include <ostream>
#include <span>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t HEADER_BYTES = 12;

std::int32_t read_int32(const std::uint8_t* bytes) {
    std::uint32_t value = 0;
    for (const unsigned i : {3U, 2U, 1U, 0U}) {
        value = value << 8U | bytes[i];
    }
    return static_cast<std::int32_t>(value);
}

void append_int32(std::vector<std::uint8_t>& bytes, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
        bytes.push_back(static_cast<std::uint8_t>(bits >> shift));
    }
}

std::string size_text(const PictureRecord& record) {
    return std::to_string(record.width) + " by " + std::to_string(record.height) + ", " +
           std::to_string(record.bytes_per_pixel) + " bytes a pixel";
}

// Takes one record off the front of `bytes`.
PictureRecord take_record(std::span<const std::uint8_t>& bytes, const std::string& name) {
    if (bytes.size() < HEADER_BYTES) {
        throw Failure(name + " is cut off");
    }
    PictureRecord record;
    record.width = read_int32(&bytes[0]);
    record.height = read_int32(&bytes[4]);
    record.bytes_per_pixel = read_int32(&bytes[8]);
    bytes = bytes.subspan(HEADER_BYTES);
    if (record.is_empty()) {
        return record;
    }
    if (!record.is_picture()) {
        throw Failure(name + " is no picture: " + size_text(record));
    }
    const auto side = static_cast<std::uint64_t>(record.width);
    const std::uint64_t size = side * side * 3;
    if (size > bytes.size()) {
        throw Failure(name + " is cut off: " + size_text(record) + ", but only " +
                      std::to_string(bytes.size()) + " bytes follow");
    }
    record.pixels.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    bytes = bytes.subspan(size);
    return record;
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

bool is_png_name(const fs::path& file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".png";
}

std::map<int, fs::path> numbered_files(const fs::path& folder) {
    std::error_code error;
    std::map<int, fs::path> files;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const fs::path& file = entries->path();
        if (!is_png_name(file)) {
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

constexpr std::size_t LARGEST_ARCHIVE =
    std::size_t{PICTURE_COUNT} * (12 + 3 * LARGEST_PICTURE * LARGEST_PICTURE);

PictureRecord picture_of(const fs::path& file) {
    const Picture picture = read_png(file, LARGEST_PICTURE);
    if (picture.width != picture.height) {
        throw Failure(file.string() + " is not square: " + std::to_string(picture.width) + " by " +
                      std::to_string(picture.height) + " pixels");
    }
    PictureRecord record{picture.width, picture.height, 3, {}};
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
        const std::uint8_t* pixel = &picture.rgba[i];
        const bool solid = pixel[3] >= 128; // there is no blending in the game
        for (std::size_t component = 0; component < 3; ++component) {
            record.pixels.push_back(solid ? pixel[component] : std::uint8_t{0});
        }
    }
    return record;
}

} // namespace

std::vector<PictureRecord> read_archive(const fs::path& archive) {
    const std::vector<std::uint8_t> file = read_whole_file(archive, LARGEST_ARCHIVE);
    std::span<const std::uint8_t> rest(file);
    std::vector<PictureRecord> records;
    records.reserve(PICTURE_COUNT);
    for (int number = 0; number < PICTURE_COUNT; ++number) {
        records.push_back(
            take_record(rest, archive.string() + ": record " + std::to_string(number)));
    }
    if (!rest.empty()) {
        throw Failure(archive.string() + ": " + std::to_string(rest.size()) +
                      " bytes follow the last record");
    }
    return records;
}

void pack_pictures(const fs::path& folder, const fs::path& archive) {
    const std::map<int, fs::path> files = numbered_files(folder);
    std::vector<std::uint8_t> bytes;
    for (int number = 0; number < PICTURE_COUNT; ++number) {
        const auto file = files.find(number);
        const PictureRecord record =
            file == files.end() ? PictureRecord{} : picture_of(file->second);
        for (const std::int32_t field : {record.width, record.height, record.bytes_per_pixel}) {
            append_int32(bytes, field);
        }
        bytes.insert(bytes.end(), record.pixels.begin(), record.pixels.end());
    }
    NewFile out(archive);
    out.write(bytes.data(), bytes.size());
    out.commit();
}

void unpack_pictures(const fs::path& archive, const fs::path& folder) {
    const std::vector<PictureRecord> records = read_archive(archive);
    std::error_code error;
    fs::create_directories(folder, error);
    if (error || !fs::is_directory(folder)) {
        throw Failure("cannot make the folder " + folder.string() +
                      (error ? ": " + error.message() : ": a file has this name"));
    }
    for (std::size_t number = 0; number < records.size(); ++number) {
        const PictureRecord& record = records[number];
        if (record.is_empty()) {
            continue;
        }
        Picture picture{record.width, record.height, {}};
        for (std::size_t i = 0; i < record.pixels.size(); i += 3) {
            const std::uint8_t* pixel = &record.pixels[i];
            const bool solid = pixel[0] != 0 || pixel[1] != 0 || pixel[2] != 0;
            picture.rgba.insert(picture.rgba.end(), {pixel[0], pixel[1], pixel[2],
                                                     static_cast<std::uint8_t>(solid ? 255 : 0)});
        }
        char name[32];
        std::snprintf(name, sizeof name, "%03zu.png", number);
        write_png(folder / name, picture);
    }
}

void list_pictures(const fs::path& archive, std::ostream& out) {
    const std::vector<PictureRecord> records = read_archive(archive);
    int pictures = 0;
    for (std::size_t number = 0; number < records.size(); ++number) {
        const PictureRecord& record = records[number];
        if (!record.is_empty()) {
            out << number << ": " << record.width << " by " << record.height << " pixels\n";
            ++pictures;
        }
    }
    out << pictures << (pictures == 1 ? " picture" : " pictures") << ", "
        << PICTURE_COUNT - pictures << " numbers without one\n";
}

} // namespace tarvik
