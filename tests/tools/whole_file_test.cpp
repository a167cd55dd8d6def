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
        EXPECT_THAT(folder.names(), testing::ElementsAre("kept"));
        EXPECT_EQ(std::filesystem::file_size(folder / "kept"), bytes.size());
    }
}

} // namespace
} // namespace tarvik
