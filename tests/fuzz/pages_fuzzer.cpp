// Drawings and pictures of any content: as tracks, of which a few bands of the map are drawn, and
// as sprites.
#include "tests/support/temporary_folder.h"
#include "tools/data/page.h"
#include "tools/data/picture_archive.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdlib>
#include <cstring>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>
#include <string>
#include <vector>
#include <zlib.h>

namespace {

using namespace tarvik;
using Input = FuzzedDataProvider;

constexpr int BAND_ROWS = 4;
/// Pictures between this and the tool's limit are read as well, but take up to a gigabyte each.
constexpr std::uint32_t LARGEST_SIDE = 2048;
constexpr std::uint32_t LARGEST_IMPORT = 16384;

std::string big_endian(std::size_t number) {
    const std::uint32_t bytes = htonl(static_cast<std::uint32_t>(number));
    return {reinterpret_cast<const char*>(&bytes), sizeof bytes};
}

/// Mostly with the right checksum, as libpng looks no further otherwise.
std::string chunk(Input& input, const std::string& type, const std::string& content) {
    const std::string checked = type + content;
    const auto sum = crc32_z(0, reinterpret_cast<const Bytef*>(checked.data()), checked.size());
    const bool wrong = input.ConsumeIntegralInRange(0, 31) == 1;
    return big_endian(content.size()) + checked + big_endian(wrong ? ~sum : sum);
}

std::string compressed(const std::string& bytes) {
    uLongf size = compressBound(bytes.size());
    std::string result(size, '\0');
    compress(reinterpret_cast<Bytef*>(result.data()), &size,
             reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    return result.substr(0, size);
}

std::uint32_t some_side(Input& input) {
    return input.ConsumeIntegralInRange(0, 7) == 1 ? input.ConsumeIntegral<std::uint32_t>()
                                                   : input.ConsumeIntegralInRange(1U, 48U);
}

/// A picture in any of the format's kinds, with as many pixel bytes as the input says.
std::string some_png(Input& input) {
    constexpr char KINDS[][2] = {{8, 6}, {8, 2}, {8, 0}, {8, 4},  {8, 3},  {4, 3},
                                 {1, 3}, {1, 0}, {2, 0}, {16, 0}, {16, 2}, {16, 6}};
    constexpr const char* TYPES[] = {"PLTE", "tRNS", "gAMA", "sRGB", "bKGD", "tEXt", "zzZZ"};
    const std::uint32_t width = some_side(input);
    const std::uint32_t height = input.ConsumeBool() ? width : some_side(input);
    const auto& kind = KINDS[input.ConsumeIntegralInRange<std::size_t>(0, std::size(KINDS) - 1)];
    const char interlaced = input.ConsumeBool() ? 1 : 0;
    std::string png("\x89PNG\r\n\x1a\n", 8);
    png += chunk(input, "IHDR",
                 big_endian(width) + big_endian(height) + kind[0] + kind[1] + '\0' + '\0' +
                     interlaced);
    for (int count = input.ConsumeIntegralInRange(0, 3); count > 0; --count) {
        const char* type = input.PickValueInArray(TYPES);
        png += chunk(input, type, input.ConsumeRandomLengthString(48));
    }
    const std::string some = input.ConsumeRandomLengthString(400);
    std::string pixels;
    for (std::size_t size = input.ConsumeIntegral<std::uint16_t>();
         pixels.size() < size && !some.empty();) {
        pixels += some;
    }
    png += chunk(input, "IDAT", compressed(pixels));
    return png + chunk(input, "IEND", "");
}

bool takes_a_gigabyte(const std::string& png) {
    std::uint32_t sides[2] = {};
    if (png.size() >= 24) {
        std::memcpy(sides, &png[16], sizeof sides);
    }
    const std::uint32_t largest = std::max(ntohl(sides[0]), ntohl(sides[1]));
    return largest > LARGEST_SIDE && largest <= LARGEST_IMPORT;
}

/// What keeps librsvg and cairo themselves busy for minutes on a page of this size.
bool takes_minutes(const std::string& drawing) {
    constexpr const char* WORDS[] = {"filter", "dash", "pattern", "mask", "fe"};
    return std::ranges::any_of(
        WORDS, [&](const char* word) { return drawing.find(word) != drawing.npos; });
}

void draw(const std::unique_ptr<Page>& page) {
    std::vector<std::uint8_t> cells(static_cast<std::size_t>(BAND_ROWS * MAP_SIDE));
    for (const int row : {0, BOX_TOP, MAP_SIDE - BAND_ROWS}) {
        page->draw(row, cells);
        if (std::ranges::max(cells) > CELL_GRASS) {
            std::abort(); // no cells of a map
        }
    }
}

/// The archive has one picture, number 30, a square of three bytes a pixel.
void pack(const TemporaryFolder& folder) {
    constexpr std::size_t RECORD_BYTES = 12; // without its pixels
    pack_pictures(folder / "in", folder / "packed.dat");
    const std::string archive = read_file(folder / "packed.dat");
    std::int32_t header[3] = {};
    std::memcpy(header, &archive.at(RECORD_BYTES * 30), RECORD_BYTES);
    const auto side = static_cast<std::size_t>(header[0]);
    if (header[0] <= 0 || header[1] != header[0] || header[2] != 3 ||
        archive.size() != PICTURE_COUNT * RECORD_BYTES + side * side * 3) {
        std::abort(); // nothing that the game could draw
    }
}

} // namespace

/// What the libraries keep for themselves: fonts, and the values of XML entities.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libpango\nleak:libxml2";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder folder;
    Input input(data, size);
    const int kind = input.ConsumeIntegralInRange(0, 3);
    const bool is_svg = kind == 1;
    const std::string bytes = kind < 2 ? input.ConsumeRemainingBytesAsString() : some_png(input);
    if (is_svg ? takes_minutes(bytes) : takes_a_gigabyte(bytes)) {
        return -1;
    }
    std::filesystem::create_directories(folder / "in");
    const std::filesystem::path file = folder / "in/030.png";
    write_file(file, bytes);
    try {
        draw(is_svg ? open_svg(file, BAND_ROWS) : open_png(file));
        pack(folder);
    } catch (const Failure&) { // an input may be refused, but only like this
    }
    return 0;
}
