// Files as the game opens them.
#include "platform/win32.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include <stdlib.h>

namespace fs = std::filesystem;

namespace {

// Each test works in an empty folder of its own.
class Files : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "tarvik-files-XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        fs::current_path(folder_);
    }

    void TearDown() override {
        fs::current_path("/");
        fs::remove_all(folder_);
    }

    static HANDLE open(const char* name) {
        return CreateFileA(name, FILE_READ_DATA | FILE_WRITE_DATA, FILE_SHARE_READ, nullptr,
                           OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    }

    static void write(const fs::path& path, const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
    }

  private:
    fs::path folder_;
};

} // namespace

TEST_F(Files, BackslashesAreSlashesAndReadsGoOnWhereTheLastOneEnded) {
    fs::create_directory("data");
    write("data/race1.map", "0123456789");
    const HANDLE file = open(".\\data\\race1.map");
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    std::array<char, 8> buffer{};
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, buffer.data(), 4, &count, nullptr));
    EXPECT_EQ(std::string(buffer.data(), count), "0123");
    EXPECT_TRUE(ReadFile(file, buffer.data(), 8, &count, nullptr));
    EXPECT_EQ(std::string(buffer.data(), count), "456789");
    EXPECT_TRUE(ReadFile(file, buffer.data(), 8, &count, nullptr)) << "the end is no failure";
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_FALSE(CloseHandle(file));
}

TEST_F(Files, AMissingFileIsCreatedEmptyButAFolderIsNot) {
    const HANDLE file = open(".\\race1.map");
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
    EXPECT_TRUE(fs::is_regular_file("race1.map"));
    EXPECT_EQ(fs::file_size("race1.map"), 0U);
    EXPECT_EQ(open(".\\data\\race1.map"), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(fs::exists("data"));
}

TEST_F(Files, AnEmptyNameIsNotOpened) {
    EXPECT_EQ(open(""), INVALID_HANDLE_VALUE);
    EXPECT_EQ(open(nullptr), INVALID_HANDLE_VALUE);
}
