// The graphics archive: whole, truncated and false.
#include "platform/scripted/scripted.h"
#include "render/graphics_archive.h"
#include "render/sprite.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <numeric>
#include <sys/resource.h>
#include <unistd.h>

namespace tarvik::test {
namespace {

class Archive : public testing::Test {
  protected:
    void TearDown() override {
        release_sprite_table();
    }

    static void load(std::vector<std::uint8_t> bytes) {
        install_data({}, {}, std::move(bytes));
        create_sprite_table();
        load_graphics_archive();
    }

    static bool is_empty(int n) {
        const Sprite& sprite = sprite_table[n];
        return sprite.pixels == nullptr && sprite.width == 0 && sprite.height == 0 &&
               sprite.bytes_per_pixel == 0;
    }

    /// Bytes of address space that this process uses now.
    static rlim_t address_space() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    }

    static std::vector<std::uint8_t> counting_bytes(std::size_t count) {
        std::vector<std::uint8_t> bytes(count);
        std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
        return bytes;
    }
};

TEST_F(Archive, ReadsTheProductAsASigned32BitNumber) {
    load(archive_of({{0, 5, 0, 3, {}},
                     {1, -4, 4, 3, {}},
                     {2, -1, -1, 3, {7, 8, 9}},
                     {3, 65536, 65536, 3, {}}, // 0 modulo 2^32
                     {4, 65536, 32768, 1, {}}, // 2^31 reads as negative
                     {5, 65537, 65536, 1, std::vector<std::uint8_t>(65536, 4)},
                     {30, 16, 16, 3, counting_bytes(768)},
                     {1399, 1, 1, 1, {99}}}));
    for (const int none : {0, 1, 3, 4}) {
        EXPECT_EQ(sprite_table[none].pixels, nullptr) << none;
    }
    EXPECT_EQ(sprite_table[0].width, 5);
    EXPECT_EQ(sprite_table[2].pixels[2], 9);
    EXPECT_EQ(sprite_table[5].pixels[65535], 4);
    EXPECT_TRUE(is_empty(6));
    EXPECT_EQ(sprite_table[30].height, 16);
    EXPECT_EQ(sprite_table[30].bytes_per_pixel, 3);
    EXPECT_EQ(sprite_table[30].pixels[767], static_cast<std::uint8_t>(768));
    EXPECT_EQ(sprite_table[1399].pixels[0], 99);
}

TEST_F(Archive, ATruncatedFileKeepsWhatItHeld) {
    const auto whole = archive_of({{0, 300, 2, 3, counting_bytes(1800)}});
    struct Cut {
        std::size_t length;
        std::int32_t width, height, depth;
    };
    for (const Cut& cut : {Cut{0, 0, 0, 0}, Cut{1, 300 % 256, 0, 0}, Cut{4, 300, 0, 0},
                           Cut{9, 300, 2, 3}, Cut{11, 300, 2, 3}}) {
        load({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut.length)});
        EXPECT_EQ(sprite_table[0].width, cut.width) << cut.length;
        EXPECT_EQ(sprite_table[0].height, cut.height) << cut.length;
        EXPECT_EQ(sprite_table[0].bytes_per_pixel, cut.depth) << cut.length;
        EXPECT_EQ(sprite_table[0].pixels != nullptr, cut.depth != 0) << cut.length;
        EXPECT_TRUE(is_empty(1)) << cut.length;
        release_sprite_table();
    }
    load({whole.begin(), whole.begin() + 12 + 4}); // ends in the second pixel
    EXPECT_EQ(sprite_table[0].pixel_bytes, 6U);
    EXPECT_EQ(sprite_table[0].pixels[3], 4);
    EXPECT_EQ(sprite_table[0].pixels[4], 0);
}

TEST_F(Archive, OrdinaryPicturesInEverySlotAreEachReadWholeInOneCall) {
    for (const auto& [side, pictures_held] : {std::pair(256, 251), {128, SPRITE_COUNT}}) {
        const auto size = static_cast<std::size_t>(side * side * 3);
        std::vector<Image> images;
        for (int n = 0; n < pictures_held; ++n) {
            images.push_back(
                {n, side, side, 3, std::vector<std::uint8_t>(size, static_cast<std::uint8_t>(n))});
        }
        scripted::calls.clear();
        scripted::recording = true;
        load(archive_of(images));
        scripted::recording = false;
        EXPECT_EQ(std::ranges::count(scripted::calls, "ReadFile 4 null"), 3 * SPRITE_COUNT);
        EXPECT_EQ(std::ranges::count(scripted::calls, "ReadFile " + std::to_string(size) + " null"),
                  pictures_held);
        EXPECT_EQ(scripted::calls.size(),
                  2U + 3 * SPRITE_COUNT + static_cast<std::size_t>(pictures_held));
        for (int n = 0; n < pictures_held; ++n) {
            const Sprite& sprite = sprite_table[n];
            ASSERT_EQ(sprite.pixel_bytes, size) << n;
            ASSERT_EQ(std::count(sprite.pixels, sprite.pixels + size, static_cast<std::uint8_t>(n)),
                      static_cast<std::ptrdiff_t>(size))
                << n;
        }
        release_sprite_table();
    }
}

TEST_F(Archive, AnEnormousPictureIsCutAndTheNextRecordFound) {
    constexpr std::int32_t SIDE = 4800; // 69 MB
    auto bytes =
        archive_of({{30, SIDE, SIDE, 3, std::vector<std::uint8_t>(std::size_t{SIDE} * SIDE * 3, 5)},
                    {250, 1, 2, 3, counting_bytes(6)}});
    load(bytes);
    EXPECT_EQ(sprite_table[30].width, SIDE);
    EXPECT_EQ(sprite_table[30].pixel_bytes, 67108866U); // 64 MiB and the end of a pixel
    EXPECT_EQ(sprite_table[30].pixels[67108863], 5);
    EXPECT_EQ(sprite_table[30].pixels[67108864], 0);
    EXPECT_EQ(sprite_table[250].pixels[5], 6);

    // It ends where the start is kept and the rest passed over; it claims what it does not hold.
    for (const auto& [held, kept] : {std::pair(68'000'000U, 67108866U), {5U, 6U}}) {
        release_sprite_table();
        bytes.resize(31 * 12 + held);
        load(bytes);
        EXPECT_EQ(sprite_table[30].pixel_bytes, kept);
        EXPECT_TRUE(is_empty(31));
    }
}

TEST_F(Archive, ManyEnormousPicturesAreKeptUpToAGigabyteAndSkippedUpToALimit) {
    // A file of nothing but this header: each picture ends where its bytes are a header again.
    constexpr std::int32_t SIDE = 5478;
    constexpr std::uint64_t CLAIMED = std::uint64_t{SIDE} * SIDE * 3; // 90 MB
    static_assert(CLAIMED % 12 == 0);
    const std::vector<std::uint8_t> header = archive_of({{0, SIDE, SIDE, 3, {}}});
    std::vector<std::uint8_t> headers;
    for (int i = 0; i < 5000; ++i) {
        headers.insert(headers.end(), header.begin(), header.begin() + 12);
    }
    scripted::memory_files["data/graphics.dat"].times = 5'000'000'000 / headers.size();
    load(headers);

    constexpr std::uint64_t GIGABYTE = std::uint64_t{1} << 30U;
    std::uint64_t kept = 0;
    int read = 0;
    for (; read < SPRITE_COUNT && sprite_table[read].pixels != nullptr; ++read) {
        ASSERT_EQ(sprite_table[read].width, SIDE);
        kept += sprite_table[read].pixel_bytes;
    }
    EXPECT_EQ(sprite_table[15].pixel_bytes, 67108866U);
    EXPECT_EQ(sprite_table[16].pixel_bytes, 1U); // not null, as the record is not empty
    EXPECT_GE(kept, GIGABYTE);
    EXPECT_LE(kept, GIGABYTE + static_cast<std::uint64_t>(read) * 2);
    EXPECT_EQ(read, (GIGABYTE + MAX_SKIPPED_BYTES) / CLAIMED + 1);
    EXPECT_TRUE(is_empty(read) && is_empty(SPRITE_COUNT - 1));
}

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses for itself
TEST_F(Archive, APictureTooLargeForMemoryIsEmptyAndTheNextOneIsRead) {
    auto bytes = archive_of(
        {{0, 4000, 4000, 3, std::vector<std::uint8_t>(48000000, 5)}, {1, 1, 1, 3, {1, 2, 3}}});
    const rlimit little{.rlim_cur = address_space() + 8'000'000, .rlim_max = RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &little), 0);
    load(std::move(bytes));
    EXPECT_TRUE(is_empty(0));
    ASSERT_NE(sprite_table[1].pixels, nullptr);
    EXPECT_EQ(sprite_table[1].pixels[2], 3);
}
#endif

TEST_F(Archive, AnEmptyReadOnlyOrFolderlessArchiveLeavesAllEmpty) {
    load({});
    EXPECT_TRUE(is_empty(0) && is_empty(30) && is_empty(1399));
    for (const bool folder : {true, false}) {
        release_sprite_table();
        scripted::memory_files["data/graphics.dat"].read_only = folder;
        scripted::memory_folder_exists = folder;
        load(archive_of({{0, 1, 1, 3, {1, 2, 3}}}));
        EXPECT_TRUE(is_empty(0));
    }
}

} // namespace
} // namespace tarvik::test
