// Drawings and pictures of any content: as tracks, of which a few bands of the map are drawn, and
// as sprites.
#include "tests/support/temporary_folder.h"
#include "tools/data/page.h"
#include "tools/data/picture_archive.h"
#include "tools/files/failure.h"
#include "tools/files/png_file.h"
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

/// A picture as the tools write it, whose header may then claim anything: with the right checksum,
/// as libpng looks no further otherwise.
std::string some_png(Input& input, const std::filesystem::path& file) {
    constexpr std::size_t HEADER = 12; // its name, 13 bytes of sides and kind, and the checksum
    constexpr std::size_t CHECKED = 4 + 13;
    const int width = input.ConsumeIntegralInRange(1, 48);
    const int height = input.ConsumeBool() ? width : input.ConsumeIntegralInRange(1, 48);
    const std::string claims = input.ConsumeRandomLengthString(13);
    auto pixels = input.ConsumeRemainingBytes<std::uint8_t>();
    pixels.resize(static_cast<std::size_t>(width * height) * 4);
    write_png(file, Picture{width, height, pixels});
    std::string png = read_file(file);
    png.replace(HEADER + 4, claims.size(), claims);
    const auto* header = reinterpret_cast<const Bytef*>(&png[HEADER]);
    const std::uint32_t checksum = htonl(static_cast<std::uint32_t>(crc32_z(0, header, CHECKED)));
    std::memcpy(&png[HEADER + CHECKED], &checksum, sizeof checksum);
    return png;
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
    std::filesystem::create_directories(folder / "in");
    const std::filesystem::path file = folder / "in/030.png";
    const std::string bytes =
        kind < 2 ? input.ConsumeRemainingBytesAsString() : some_png(input, file);
    if (is_svg ? takes_minutes(bytes) : takes_a_gigabyte(bytes)) {
        return -1;
    }
    write_file(file, bytes);
    try {
        draw(is_svg ? open_svg(file, BAND_ROWS) : open_png(file));
        pack(folder);
    } catch (const Failure&) { // an input may be refused, but only like this
    }
    return 0;
}
