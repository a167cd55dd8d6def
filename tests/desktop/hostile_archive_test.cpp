// Archives that are full, far too large or false, as real files: frames come at their usual pace,
// and memory grows by what the file holds, up to the reader's limits.
#include "tests/desktop/play_fixture.h"

#include <fstream>
#include <limits>
#include <vector>

namespace fs = std::filesystem;

namespace tarvik {

namespace {

#ifdef __SANITIZE_ADDRESS__ // needs as much memory again
constexpr bool IS_SANITIZED = true;
#else
constexpr bool IS_SANITIZED = false;
#endif

constexpr unsigned long ROAD_COLOUR = 0x3C3C3C;
constexpr int RECORDS = 1400;
constexpr std::uintmax_t FIVE_GIGABYTES = 5'000'000'000;
constexpr std::size_t MEBIBYTE = 1024 * 1024;
constexpr std::int32_t WIDEST = 26754; // of all squares whose bytes fit 31 bits

struct Record {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bytes_per_pixel = 0;
    std::size_t coloured_bytes = 0; ///< of MARKER_COLOUR, in a row
};

using Records = std::vector<Record>;

constexpr Record TWO_GIGABYTES = {WIDEST, WIDEST, 3, 0};

Records same_in_all(const Record& record) {
    return Records(RECORDS, record);
}

Records marker_and_pointer(const Record& record) {
    Records records(RECORDS);
    records[30] = record;
    records[250] = record;
    return records;
}

Records behind_a_huge_picture(const Record& record) {
    Records records = marker_and_pointer(record);
    records[0] = {25'000, 14'000, 2, 0};
    return records;
}

/// Each record with the bytes it claims, as holes where they are not coloured, up to `size`; or,
/// where that is 0, only with its coloured bytes.
void write_archive(const fs::path& path, const Records& records, std::uintmax_t size) {
    std::ofstream file(path, std::ios::binary);
    for (const Record& record : records) {
        file.write(reinterpret_cast<const char*>(&record), 3 * sizeof(std::int32_t));
        std::string colours;
        while (colours.size() < record.coloured_bytes) {
            colours += {static_cast<char>(MARKER_COLOUR >> 16U),
                        static_cast<char>(MARKER_COLOUR >> 8U & 0xFFU),
                        static_cast<char>(MARKER_COLOUR & 0xFFU)};
        }
        file << colours;
        if (size > 0) {
            const std::int64_t claimed =
                std::int64_t{record.width} * record.height * record.bytes_per_pixel;
            file.seekp(claimed - static_cast<std::int64_t>(colours.size()), std::ios::cur);
            if (file.tellp() >= static_cast<std::streamoff>(size)) {
                break;
            }
        }
    }
    file.close();
    if (size > 0) {
        fs::resize_file(path, size);
    }
}

/// Bytes of the process that are in memory, by the name of /proc's status.
std::size_t status_bytes(pid_t process, const std::string& name) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        if (word == name) {
            std::size_t kibibytes = 0;
            status >> kibibytes;
            return kibibytes * 1024;
        }
    }
    return 0;
}

/// The highest so far, without the libraries' code, which is as much as the OpenGL driver brings.
std::size_t peak_memory(pid_t process) {
    return status_bytes(process, "VmHWM:") - status_bytes(process, "RssFile:");
}

class HostileArchive : public PlayTest {
  protected:
    void expect_usual_play(unsigned long colour, std::size_t held) {
        constexpr int USUAL_PACE = 58; // whole frames in a second that begins anywhere
        constexpr int MOST_SECONDS = 20;
        constexpr std::size_t WHAT_VARIES = 8 * MEBIBYTE;
        const auto start = std::chrono::steady_clock::now();
        start_game(server_.display());
        bool found = false; // gigabytes may have to be read while other programs read too
        for (int attempt = 0; attempt < 6 && !found; ++attempt) {
            found = player_.finds_game_with(colour, 600, 300);
        }
        ASSERT_TRUE(found) << read(folder_ / "errors");
        const std::chrono::duration<double> start_time = std::chrono::steady_clock::now() - start;
        player_.watch_pictures();
        int best = 0; // another program may make it slower for a while
        for (int second = 0; second < MOST_SECONDS && best < USUAL_PACE; ++second) {
            best = std::max(best, pictures_in_a_second(player_));
        }
        const std::size_t memory = peak_memory(game_->id());
        std::printf("first picture after %.2f s, %d pictures a second, %.1f MB\n",
                    start_time.count(), best, static_cast<double>(memory) * 1e-6);
        EXPECT_GE(best, USUAL_PACE);
        if (usual_memory_ == 0) {
            usual_memory_ = memory;
        }
        EXPECT_TRUE(IS_SANITIZED || memory < usual_memory_ + held + WHAT_VARIES);
        player_.press(XK_Escape);
        EXPECT_EQ(game_->wait(), 0);
        player_.release(XK_Escape);
        EXPECT_EQ(read(folder_ / "errors"), "");
    }

  private:
    std::size_t usual_memory_ = 0; ///< of the first game
};

} // namespace

TEST_F(HostileArchive, CostsNeitherTimeNorMemory) {
    constexpr std::int32_t MIN = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t MAX = std::numeric_limits<std::int32_t>::max();
    const struct {
        const char* name;
        Records records;
        std::uintmax_t size;                ///< of the file; 0: as long as its records
        std::size_t held = 0;               ///< bytes of pixels, at most
        unsigned long colour = ROAD_COLOUR; ///< of the view, where a picture can cover it
    } cases[] = {
        {"no byte", {}, 0},
        {"five gigabytes of nothing", {}, FIVE_GIGABYTES},
        {"1400 claims of two gigabytes", same_in_all(TWO_GIGABYTES), 0},
        {"the same, and five gigabytes to read", same_in_all(TWO_GIGABYTES), FIVE_GIGABYTES,
         2 * 64 * MEBIBYTE},
        {"1400 pictures of a megabyte", same_in_all({591, 591, 3, 0}), 1'467'000'000,
         1024 * MEBIBYTE},
        {"251 ordinary pictures", Records(251, {256, 256, 3, 196'608}), 0, 48 * MEBIBYTE,
         MARKER_COLOUR},
        {"1400 ordinary pictures", same_in_all({128, 128, 3, 49'152}), 0, 66 * MEBIBYTE},
        {"a marker behind 700 MB", behind_a_huge_picture({256, 256, 3, 196'608}), 702'000'000,
         65 * MEBIBYTE, MARKER_COLOUR},
        {"products that overflow", same_in_all({MAX, MAX, MAX, 0}), 0},
        {"negative sizes", same_in_all({-1, 3, -WIDEST, 0}), 0},
        {"the lowest sizes", same_in_all({MIN, -1, 1, 0}), 0},
        {"a very wide marker of few bytes", marker_and_pointer({WIDEST, WIDEST, 3, 999}), 0},
        {"the widest of all", marker_and_pointer({MAX, 1, 1, 3'000}), 0},
        {"a very wide marker of many bytes", marker_and_pointer({WIDEST, WIDEST, 3, 100'000'000}),
         0, 128 * MEBIBYTE, MARKER_COLOUR},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        std::printf("%s: ", each.name);
        write_archive(folder_ / "data" / "graphics.dat", each.records, each.size);
        expect_usual_play(each.colour, each.held);
    }
}

} // namespace tarvik
