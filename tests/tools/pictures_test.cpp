// Packing pictures, with the real program.
#include "tests/tools/program_run.h"
#include "tools/files/png_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

Picture plain_picture(int width, int height) {
    return {width, height,
            std::vector<std::uint8_t>(static_cast<std::size_t>(width * height) * 4, 255)};
}

// An empty record is 12 zero bytes. A pipe stays one, while a file would be replaced.
TEST(Pictures, are_packed_as_the_game_reads_them) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "in");
    write_png(folder / "in/3-sign.png",
              Picture{2, 2, {1, 2, 3, 255, 0, 0, 0, 255, 200, 100, 0, 127, 4, 5, 6, 128}});
    write_png(folder / "in/1399.PNG", plain_picture(1, 1));
    write_file(folder / "in/notes.txt", "left out");
    const auto [exit_code, text] =
        run_in(folder, "mkfifo pipe; tarvik-data pictures pack in pipe & "
                       "timeout 60 cat pipe; wait; test -p pipe");
    EXPECT_EQ(exit_code, 0);
    EXPECT_EQ(text, std::string(3 * 12, '\0') + std::string("\2\0\0\0\2\0\0\0\3\0\0\0", 12) +
                        std::string("\1\2\3\0\0\0\0\0\0\4\5\6", 12) + std::string(1395 * 12, '\0') +
                        std::string("\1\0\0\0\1\0\0\0\3\0\0\0\xff\xff\xff", 15));
}

TEST(Pictures, are_refused_with_a_reason) {
    const TemporaryFolder folder;
    write_file(folder / "kept.dat", "earlier");
    const auto refused = [&](const std::string& name, const std::string& words) {
        const auto [exit_code, text] =
            run_in(folder, "tarvik-data pictures pack " + name + " kept.dat");
        EXPECT_EQ(exit_code, 1) << name;
        EXPECT_THAT(text, testing::HasSubstr(words));
        EXPECT_EQ(read_file(folder / "kept.dat"), "earlier");
    };
    refused("nowhere", "cannot read nowhere: No such file or directory");
    fs::create_directory(folder / "none");
    refused("none", "no PNG files in none");
    const auto refused_picture = [&](const std::string& name, const Picture& picture,
                                     const std::string& words) {
        write_png(folder / ("none/" + name), picture);
        refused("none", "none/" + name + words);
        fs::remove(folder / ("none/" + name));
    };
    refused_picture("1.png", plain_picture(3, 2), " is not square: 3 by 2 pixels");
    refused_picture("1.png", plain_picture(1025, 1), " is 1025 by 1 pixels, more than the 1024 by");
    refused_picture("car.png", plain_picture(1, 1), ": the name must be a sprite number");
    refused_picture("1400.png", plain_picture(1, 1), ": sprite numbers end at 1399");
    write_png(folder / "none/7.png", plain_picture(64, 64));
    refused_picture("007.png", plain_picture(1, 1), " and none/7.png have the same number");

    const std::string whole = read_file(folder / "none/7.png");
    std::string flipped = whole;
    flipped[whole.size() / 2] = static_cast<char>(~flipped[whole.size() / 2]);
    for (const std::string& bytes : {whole.substr(0, whole.size() / 2), flipped, std::string()}) {
        write_file(folder / "none/7.png", bytes);
        refused("none", "none/7.png is damaged or not a PNG picture");
    }
}

} // namespace
} // namespace tarvik
