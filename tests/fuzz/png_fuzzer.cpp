// PNG pictures as tracks and as sprites.
#include "tests/tools/temporary_folder.h"
#include "tools/data/page.h"
#include "tools/data/picture_archive.h"
#include "tools/files/failure.h"
#include "tools/track/track.h"

#include <algorithm>
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

/// Pictures between this and the tool's limit are read as well, but take up to a gigabyte each.
constexpr std::uint32_t LARGEST_SIDE = 2048;
constexpr std::uint32_t LARGEST_IMPORT = 16384;
constexpr std::size_t RECORD_BYTES = 12; ///< of an archive's record without its pixels

std::string big_endian(std::uint32_t value) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(value >> shift & 255U);
    }
    return bytes;
}

/// Mostly with the right checksum, as libpng looks no further otherwise.
std::string chunk(Input& input, const std::string& type, const std::string& content) {
    const std::string checked = type + content;
    const auto sum = static_cast<std::uint32_t>(crc32(
        0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size())));
    const bool wrong = input.ConsumeIntegralInRange(0, 31) == 1;
    return big_endian(static_cast<std::uint32_t>(content.size())) + checked +
           big_endian(wrong ? ~sum : sum);
}

std::string compressed(const std::string& bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string result(size, '\0');
    compress(reinterpret_cast<Bytef*>(result.data()), &size,
             reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()));
    result.resize(size);
    return result;
}

std::uint32_t some_side(Input& input) {
    return input.ConsumeIntegralInRange(0, 7) == 1 ? input.ConsumeIntegral<std::uint32_t>()
                                                   : input.ConsumeIntegralInRange(1U, 48U);
}

/// A picture in any of the format's kinds, with as many pixel bytes as the input says.
std::string some_png(Input& input) {
    constexpr char KINDS[][2] = {{8, 6}, {8, 2}, {8, 0}, {8, 4},  {8, 3},  {4, 3},
                                 {1, 3}, {1, 0}, {2, 0}, {16, 0}, {16, 2}, {16, 6}};
    const std::uint32_t width = some_side(input);
    const std::uint32_t height = input.ConsumeBool() ? width : some_side(input);
    const auto& kind = KINDS[input.ConsumeIntegralInRange<std::size_t>(0, std::size(KINDS) - 1)];
    const char interlaced = input.ConsumeBool() ? 1 : 0;
    std::string png("\x89PNG\r\n\x1a\n", 8);
    png += chunk(input, "IHDR",
                 big_endian(width) + big_endian(height) + kind[0] + kind[1] + '\0' + '\0' +
                     interlaced);
    constexpr const char* TYPES[] = {"PLTE", "tRNS", "gAMA", "sRGB", "bKGD", "tEXt", "zzZZ"};
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

bool is_large(const std::string& png) {
    const auto side = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = at; i < at + 4 && i < png.size(); ++i) {
            value = value << 8U | static_cast<std::uint8_t>(png[i]);
        }
        return value;
    };
    const std::uint32_t largest = std::max(side(16), side(20));
    return largest > LARGEST_SIDE && largest <= LARGEST_IMPORT;
}

void import_cells(const std::filesystem::path& picture) {
    const std::unique_ptr<Page> page = open_png(picture);
    std::vector<std::uint8_t> cells(MAP_SIDE);
    for (const int y : {0, 1, BOX_TOP, MAP_SIDE - 1}) {
        page->draw(y, cells);
        if (std::ranges::any_of(cells, [](std::uint8_t cell) { return cell > CELL_GRASS; })) {
            std::abort(); // no cells of a map
        }
    }
}

/// The archive has one picture, number 30, a square of three bytes a pixel.
void pack(const TemporaryFolder& folder) {
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

/// Runs a tool, which may refuse its input with a Failure and in no other way.
template <typename Tool>
void allow_failure(Tool tool) {
    try {
        tool();
    } catch (const Failure&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TemporaryFolder folder;
    Input input(data, size);
    const bool as_it_is = input.ConsumeIntegralInRange(0, 3) < 2;
    const std::string png = as_it_is ? input.ConsumeRemainingBytesAsString() : some_png(input);
    if (is_large(png)) {
        return -1;
    }
    std::filesystem::create_directories(folder / "in");
    write_file(folder / "in/030.png", png);
    allow_failure([] { import_cells(folder / "in/030.png"); });
    allow_failure([] { pack(folder); });
    return 0;
}
