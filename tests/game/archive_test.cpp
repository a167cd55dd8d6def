// The graphics archive: whole, truncated and false.
#include "platform/scripted/scripted.h"
#include "render/graphics_archive.h"
#include "render/sprite.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <fstream>
#include <numeric>
#include <sys/resource.h>
#include <unistd.h>

namespace tarvik::test {
namespace {

constexpr const char* EMPTY = "0 0 0: null";

class Archive : public testing::Test {
  protected:
    void TearDown() override {
        release_sprite_table();
    }

    static void load(std::vector<std::uint8_t> bytes) {
        release_sprite_table();
        create_sprite_table();
        install_data({}, {}, std::move(bytes));
        load_graphics_archive();
    }

    /// "width height depth: bytes held".
    static std::string sprite(int n) {
        const Sprite& found = sprite_table[n];
        return std::to_string(found.width) + " " + std::to_string(found.height) + " " +
               std::to_string(found.bytes_per_pixel) + ": " +
               (found.pixels == nullptr ? "null" : std::to_string(found.pixel_bytes));
    }

    static std::vector<std::uint8_t> counting_bytes(std::size_t count) {
        std::vector<std::uint8_t> bytes(count);
        std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
        return bytes;
    }
};

TEST_F(Archive, ReadsTheProductAsASigned32BitNumber) {
    const std::vector<Image> images = {{0, 5, 0, 3, {}},
                                       {1, -4, 4, 3, {}},
                                       {2, -1, -1, 3, {7, 8, 9}},
                                       {3, 65536, 65536, 3, {}}, // 0 modulo 2^32
                                       {4, 65536, 32768, 1, {}}, // 2^31 reads as negative
                                       {5, 65537, 65536, 1, counting_bytes(65536)},
                                       {30, 16, 17, 3, counting_bytes(816)},
                                       {1399, 1, 1, 1, {99}}};
    load(archive_of(images));
    for (const Image& image : images) {
        const std::string held = image.bytes.empty() ? "null" : std::to_string(image.bytes.size());
        EXPECT_EQ(sprite(image.number), std::to_string(image.width) + " " +
                                            std::to_string(image.height) + " " +
                                            std::to_string(image.bytes_per_pixel) + ": " + held);
    }
    EXPECT_EQ(sprite(6), EMPTY);
    EXPECT_EQ(sprite_table[2].pixels[2], 9);
    EXPECT_EQ(sprite_table[30].pixels[815], 816 % 256);
    EXPECT_EQ(sprite_table[1399].pixels[0], 99);
}

TEST_F(Archive, ATruncatedFileKeepsWhatItHeldAndAnUnreadableOneNothing) {
    const auto whole = archive_of({{0, 300, 2, 3, counting_bytes(1800)}});
    for (const auto& [length, expected] : {std::pair(0, EMPTY),
                                           {1, "44 0 0: null"},
                                           {4, "300 0 0: null"},
                                           {9, "300 2 3: 1"},
                                           {12, "300 2 3: 1"},
                                           {12 + 4, "300 2 3: 6"}}) { // ends in the second pixel
        load({whole.begin(), whole.begin() + length});
        EXPECT_EQ(sprite(0), expected) << length;
        EXPECT_EQ(sprite(1), EMPTY) << length;
    }
    EXPECT_EQ(sprite_table[0].pixels[3], 4);
    EXPECT_EQ(sprite_table[0].pixels[4], 0);

    scripted::memory_files["data/graphics.dat"].read_only = true;
    load(whole);
    EXPECT_EQ(sprite(0), EMPTY);
    scripted::memory_files.clear();
}

TEST_F(Archive, AnEnormousPictureIsCutAndTheNextRecordFound) {
    auto bytes = archive_of({{30, 4800, 4800, 3, std::vector<std::uint8_t>(69'120'000, 5)},
                             {250, 1, 2, 3, counting_bytes(6)}});
    load(bytes);
    EXPECT_EQ(sprite(30), "4800 4800 3: 67108866"); // 64 MiB and the end of a pixel
    EXPECT_EQ(sprite_table[30].pixels[67108863], 5);
    EXPECT_EQ(sprite_table[30].pixels[67108864], 0);
    EXPECT_EQ(sprite_table[250].pixels[5], 6);

    // It ends where the start is kept and the rest passed over; it claims what it does not hold.
    for (const auto& [held, expected] :
         {std::pair(68'000'000U, "4800 4800 3: 67108866"), {5U, "4800 4800 3: 6"}}) {
        bytes.resize(31 * 12 + held);
        load(bytes);
        EXPECT_EQ(sprite(30), expected);
        EXPECT_EQ(sprite(31), EMPTY);
    }
}

TEST_F(Archive, ManyEnormousPicturesAreKeptUpToAGigabyteAndSkippedUpToALimit) {
    // A file of nothing but this header: each picture ends where its bytes are a header again.
    constexpr std::int32_t SIDE = 5478;
    constexpr std::uint64_t CLAIMED = std::uint64_t{SIDE} * SIDE * 3; // 90 MB
    static_assert(CLAIMED % 12 == 0);
    auto header = archive_of({{0, SIDE, SIDE, 3, {}}});
    header.resize(12);
    std::vector<std::uint8_t> headers;
    for (int i = 0; i < 5000; ++i) {
        headers.insert(headers.end(), header.begin(), header.end());
    }
    scripted::memory_files["data/graphics.dat"].times = 5'000'000'000 / headers.size();
    load(headers);

    constexpr std::uint64_t GIGABYTE = std::uint64_t{1} << 30U;
    std::uint64_t kept = 0;
    int read = 0;
    for (; read < SPRITE_COUNT && sprite_table[read].width == SIDE; ++read) {
        kept += sprite_table[read].pixel_bytes;
    }
    EXPECT_EQ(sprite_table[15].pixel_bytes, 67108866U);
    EXPECT_EQ(sprite(16), "5478 5478 3: 1"); // not null, as the record is not empty
    EXPECT_GE(kept, GIGABYTE);
    EXPECT_LE(kept, GIGABYTE + static_cast<std::uint64_t>(read) * 2);
    EXPECT_EQ(read, (GIGABYTE + MAX_SKIPPED_BYTES) / CLAIMED + 1);
    EXPECT_EQ(sprite(read), EMPTY);
    EXPECT_EQ(sprite(SPRITE_COUNT - 1), EMPTY);
}

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses for itself
TEST_F(Archive, APictureTooLargeForMemoryIsEmptyAndTheNextOneIsRead) {
    auto bytes = archive_of(
        {{0, 4000, 4000, 3, std::vector<std::uint8_t>(48000000, 5)}, {1, 1, 1, 3, {1, 2, 3}}});
    rlim_t pages = 0; // of addresses that this process uses now
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit little{.rlim_cur = pages * static_cast<rlim_t>(getpagesize()) + 8'000'000,
                        .rlim_max = RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &little), 0);
    load(std::move(bytes));
    EXPECT_EQ(sprite(0), EMPTY);
    EXPECT_EQ(sprite(1), "1 1 3: 3");
}
#endif

} // namespace
} // namespace tarvik::test
