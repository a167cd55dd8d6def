// Packing pictures and taking them out again, with the real program.
#include "tests/tools/program_run.h"
#include "tests/tools/temporary_folder.h"
#include "tools/files/png_file.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

Picture plain_picture(int width, int height) {
    Picture picture{width, height, {}};
    picture.rgba.assign(static_cast<std::size_t>(width * height) * 4, 255);
    return picture;
}

std::string record(std::initializer_list<int> fields, const std::string& pixels = "") {
    std::string bytes;
    for (const int field : fields) {
        for (const int shift : {0, 8, 16, 24}) {
            bytes += static_cast<char>(field >> shift & 255);
        }
    }
    return bytes + pixels;
}

std::string empty_records(std::size_t count) {
    return std::string(count * 12, '\0');
}

TEST(Pictures, are_packed_as_the_game_reads_them_and_come_back_the_same) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "in");
    Picture tiny{2,
                 2,
                 {1, 2, 3, 255, /* black        */ 0, 0, 0, 255, 200, 100, 0, 127,
                  /* just solid  */ 4, 5, 6, 128}};
    write_png(folder / "in/3-sign.png", tiny);
    write_png(folder / "in/1399.PNG", plain_picture(1, 1));
    write_file(folder / "in/notes.txt", "left out");

    ASSERT_EQ(run_tarvik_data(folder, "pictures pack in a.dat").error, "");
    const std::string pixels("\1\2\3\0\0\0\0\0\0\4\5\6", 12);
    EXPECT_EQ(read_file(folder / "a.dat"), empty_records(3) + record({2, 2, 3}, pixels) +
                                               empty_records(1395) +
                                               record({1, 1, 3}, "\xff\xff\xff"));

    EXPECT_EQ(run_tarvik_data(folder, "pictures list a.dat").out,
              "3: 2 by 2 pixels\n1399: 1 by 1 pixels\n2 pictures, 1398 numbers without one\n");

    ASSERT_EQ(run_tarvik_data(folder, "pictures unpack a.dat out").error, "");
    EXPECT_TRUE(fs::exists(folder / "out/003.png"));
    EXPECT_EQ(read_png(folder / "out/003.png", 9).rgba,
              (std::vector<std::uint8_t>{1, 2, 3, 255, 0, 0, 0, 0, 0, 0, 0, 0, 4, 5, 6, 255}));
    ASSERT_EQ(run_tarvik_data(folder, "pictures pack out b.dat").error, "");
    EXPECT_EQ(read_file(folder / "a.dat"), read_file(folder / "b.dat"));
}

// One line on standard error with these words, exit code 1, and the earlier archive unharmed.
void expect_refused(const TemporaryFolder& folder, const std::string& arguments,
                    const std::string& words) {
    const ProgramRun run = run_tarvik_data(folder, arguments);
    EXPECT_EQ(run.exit_code, 1) << arguments;
    EXPECT_NE(run.error.find(words), std::string::npos) << run.error;
    EXPECT_EQ(run.error.find('\n'), run.error.size() - 1) << run.error;
    EXPECT_EQ(read_file(folder / "kept.dat"), "earlier");
}

TEST(Pictures, refuses_bad_folders) {
    const TemporaryFolder folder;
    write_file(folder / "kept.dat", "earlier");
    const auto refused = [&](const std::string& name, const std::string& words) {
        expect_refused(folder, "pictures pack " + name + " kept.dat", words);
    };
    refused("nowhere", "cannot read nowhere: No such file or directory");
    fs::create_directory(folder / "none");
    refused("none", "no PNG files in none");

    const auto folder_with = [&](const std::string& name, const std::string& file,
                                 const Picture& picture) {
        fs::create_directory(folder / name);
        write_png(folder / (name + "/" + file), picture);
    };
    folder_with("oblong", "1.png", plain_picture(3, 2));
    refused("oblong", "oblong/1.png is not square: 3 by 2 pixels");
    folder_with("large", "1.png", plain_picture(1025, 1));
    refused("large", "1024 by 1024");
    folder_with("unnumbered", "car.png", plain_picture(1, 1));
    refused("unnumbered", "unnumbered/car.png: the name must be a sprite number");
    folder_with("beyond", "1400.png", plain_picture(1, 1));
    refused("beyond", "1399");
    folder_with("twice", "7.png", plain_picture(1, 1));
    folder_with("twice", "007.png", plain_picture(1, 1));
    refused("twice", "twice/007.png and twice/7.png have the same number");

    folder_with("broken", "1.png", plain_picture(64, 64));
    const std::string whole = read_file(folder / "broken/1.png");
    write_file(folder / "broken/1.png", whole.substr(0, whole.size() / 2));
    refused("broken", "broken/1.png is damaged");
    std::string flipped = whole;
    flipped[whole.size() / 2] = static_cast<char>(~flipped[whole.size() / 2]);
    write_file(folder / "broken/1.png", flipped);
    refused("broken", "broken/1.png is damaged");
    write_file(folder / "broken/1.png", "");
    refused("broken", "broken/1.png is not a PNG picture");
}

TEST(Pictures, refuses_bad_archives) {
    const TemporaryFolder folder;
    write_file(folder / "kept.dat", "earlier");
    const auto refused = [&](const std::string& bytes, const std::string& words) {
        write_file(folder / "bad.dat", bytes);
        expect_refused(folder, "pictures list bad.dat", words);
        expect_refused(folder, "pictures unpack bad.dat out", words);
        EXPECT_FALSE(fs::exists(folder / "out"));
    };
    refused("", "record 0 is cut off");
    refused(empty_records(1399) + record({2, 2, 3}, "too short"), "record 1399 is cut off");
    refused(record({2, 2, 3}, std::string(12, 'x')) + empty_records(1398), "record 1399");
    refused(record({40000, 40000, 3}) + empty_records(1399), "record 0 is cut off");
    refused(record({INT32_MAX, INT32_MAX, 3}) + empty_records(1399), "record 0 is cut off");
    refused(record({-1, -1, 3}, "abc") + empty_records(1399), "record 0 is no picture");
    refused(record({2, 3, 3}) + empty_records(1399), "record 0 is no picture");
    refused(record({2, 2, 4}) + empty_records(1399), "record 0 is no picture");
    refused(empty_records(1401), "12 bytes follow");
    expect_refused(folder, "pictures list nowhere.dat", "cannot read nowhere.dat");
    expect_refused(folder, "pictures list .", "cannot read .: Is a directory");
    write_file(folder / "bad.dat", empty_records(1400));
    expect_refused(folder, "pictures unpack bad.dat kept.dat", "cannot make the folder kept.dat");
}

} // namespace
} // namespace tarvik
