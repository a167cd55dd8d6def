// The graphics archive, whole, cut and lying.
#include "platform/scripted/scripted.h"
#include "render/graphics_archive.h"
#include "render/sprite.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <filesystem>
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

    /// Bytes of addresses that this process uses now.
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

TEST_F(Archive, FillsEachNumberFromItsRecord) {
    load(archive_of({{0, 2, 1, 3, counting_bytes(6)},
                     {30, 16, 16, 3, counting_bytes(768)},
                     {1399, 1, 1, 1, {99}}}));
    EXPECT_EQ(sprite_table[0].pixels[5], 6);
    EXPECT_TRUE(is_empty(1));
    EXPECT_EQ(sprite_table[30].width, 16);
    EXPECT_EQ(sprite_table[30].height, 16);
    EXPECT_EQ(sprite_table[30].bytes_per_pixel, 3);
    EXPECT_EQ(sprite_table[30].pixels[767], static_cast<std::uint8_t>(768));
    EXPECT_EQ(sprite_table[1399].pixels[0], 99);
}

TEST_F(Archive, ReadsTheProductAsASigned32BitNumber) {
    load(archive_of({{0, 5, 0, 3, {}},
                     {1, -4, 4, 3, {}},
                     {2, -1, -1, 3, {7, 8, 9}},
                     {3, 65536, 65536, 3, {}}, // 0 modulo 2^32
                     {4, 65536, 32768, 1, {}}, // 2^31 reads as negative
                     {5, 65537, 65536, 1, std::vector<std::uint8_t>(65536, 4)},
                     {6, 1, 1, 3, {1, 2, 3}}}));
    EXPECT_EQ(sprite_table[0].width, 5);
    EXPECT_EQ(sprite_table[0].pixels, nullptr);
    EXPECT_EQ(sprite_table[1].pixels, nullptr);
    EXPECT_EQ(sprite_table[2].pixels[2], 9);
    EXPECT_EQ(sprite_table[3].pixels, nullptr);
    EXPECT_EQ(sprite_table[4].pixels, nullptr);
    EXPECT_EQ(sprite_table[5].pixels[65535], 4);
    EXPECT_EQ(sprite_table[6].pixels[2], 3);
}

TEST_F(Archive, ACutHeaderOrBodyLeavesWhatWasThere) {
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

TEST_F(Archive, AHugeClaimKeepsNoMemoryThatTheFileDoesNotBack) {
    auto bytes = archive_of({{0, 26000, 26000, 3, {1, 2, 3, 4, 5}}}); // claims 2 GB
    bytes.resize(12 + 5);
    load(bytes);
    ASSERT_NE(sprite_table[0].pixels, nullptr);
    EXPECT_EQ(sprite_table[0].pixel_bytes, 6U);
    EXPECT_EQ(sprite_table[0].pixels[4], 5);
    EXPECT_TRUE(is_empty(1));
}

TEST_F(Archive, KeepsNoMoreThanItsLimitAndFindsTheNextRecordAllTheSame) {
    constexpr std::int32_t SIDE = 2500; // 18.75 MB, more than half of the limit
    load(
        archive_of({{30, SIDE, SIDE, 3, std::vector<std::uint8_t>(std::size_t{SIDE} * SIDE * 3, 5)},
                    {250, 1, 2, 3, counting_bytes(6)}}));
    EXPECT_EQ(sprite_table[30].width, SIDE);
    EXPECT_EQ(sprite_table[30].pixel_bytes, MAX_PIXEL_BYTES / 2);
    EXPECT_EQ(sprite_table[30].pixels[MAX_PIXEL_BYTES / 2 - 1], 5);
    EXPECT_EQ(sprite_table[250].pixel_bytes, 6U);
    EXPECT_EQ(sprite_table[250].pixels[5], 6);

    release_sprite_table();
    std::vector<Image> images;
    for (int n = 0; n < 40; ++n) {
        images.push_back({n, 1500, 1500, 3, std::vector<std::uint8_t>(6750000, 5)});
    }
    load(archive_of(images));
    std::size_t kept = 0;
    for (int n = 0; n < SPRITE_COUNT; ++n) {
        kept += sprite_table[n].pixel_bytes;
    }
    EXPECT_EQ(sprite_table[2].pixel_bytes, 6750000U);
    EXPECT_EQ(sprite_table[39].width, 1500);
    EXPECT_EQ(sprite_table[39].pixel_bytes, 1U); // non-null, as the record is not empty
    EXPECT_LE(kept, MAX_PIXEL_BYTES + 40);
}

TEST_F(Archive, EndsWhereTheFileDoesAlsoInTheMiddleOfWhatItPassesOver) {
    auto bytes = archive_of(
        {{0, 8000, 5000, 1, std::vector<std::uint8_t>(40000000, 5)}, {1, 1, 1, 3, {1, 2, 3}}});
    bytes.resize(37000000);
    load(std::move(bytes));
    EXPECT_EQ(sprite_table[0].pixel_bytes, MAX_PIXEL_BYTES / 2);
    EXPECT_TRUE(is_empty(1));
}

TEST_F(Archive, PassesOverNoMoreThanHalfAGigabyte) {
    char folder[] = "/tmp/tarvik-archive-XXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    std::filesystem::current_path(folder);
    std::filesystem::create_directory("data");
    const std::int32_t huge[] = {30000, 10000, 2}; // 600 MB, of which the disk stores nothing
    const std::int32_t next[] = {1, 1, 0};
    std::ofstream file("data/graphics.dat", std::ios::binary);
    file.write(reinterpret_cast<const char*>(huge), sizeof huge);
    file.seekp(MAX_PIXEL_BYTES / 2 + MAX_SKIPPED_BYTES, std::ios::cur); // where reading ends
    file.write(reinterpret_cast<const char*>(next), sizeof next);
    file.close();
    scripted::use_memory_files = false;
    create_sprite_table();
    load_graphics_archive();
    std::filesystem::remove_all(folder);
    EXPECT_EQ(sprite_table[0].pixel_bytes, MAX_PIXEL_BYTES / 2);
    EXPECT_TRUE(is_empty(1));
}

#ifndef __SANITIZE_ADDRESS__ // which takes terabytes of addresses for itself
TEST_F(Archive, APictureThatThereIsNoMemoryForIsEmptyAndTheNextOneIsRead) {
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
    release_sprite_table();

    scripted::memory_files["data/graphics.dat"].read_only = true;
    load(archive_of({{0, 1, 1, 3, {1, 2, 3}}}));
    EXPECT_TRUE(is_empty(0));
    release_sprite_table();

    scripted::memory_files["data/graphics.dat"].read_only = false;
    scripted::memory_folder_exists = false;
    load(archive_of({{0, 1, 1, 3, {1, 2, 3}}}));
    EXPECT_TRUE(is_empty(0));
}

} // namespace
} // namespace tarvik::test
