// A file that appears whole or not at all.
#include "tools/files/whole_file.h"

#include "tests/support/temporary_folder.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tarvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

const std::vector<std::uint8_t> NEW = {'n', 'e', 'w'};

TEST(WholeFile, takes_the_place_of_an_earlier_one_with_its_permissions) {
    const TemporaryFolder folder;
    write_file(folder / "kept", "earlier");
    fs::permissions(folder / "kept", fs::perms{0640});
    fs::create_symlink("kept", folder / "link");
    write_whole_file(folder / "link", NEW);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(read_file(folder / "kept"), "new");
    EXPECT_EQ(fs::status(folder / "kept").permissions(), fs::perms{0640});
    EXPECT_THAT(folder.names(), ElementsAre("kept", "link"));
}

// Each time the signal comes while the file is half written.
TEST(WholeFile, is_whole_and_leaves_nothing_else_behind_when_interrupted) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(number);
        const TemporaryFolder folder;
        const std::vector<std::uint8_t> bytes(std::size_t{1} << 26U);
        std::signal(number, SIG_DFL); // whatever the shell ignores in its background
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                write_whole_file(folder / "kept", bytes);
            }
        }
        while (folder.names().empty()) {
            usleep(100);
        }
        kill(child, number);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number);
        EXPECT_THAT(folder.names(), ElementsAre("kept"));
        EXPECT_EQ(fs::file_size(folder / "kept"), bytes.size());
    }
}

} // namespace
} // namespace tarvik
