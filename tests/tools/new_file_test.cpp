// A file that appears whole or not at all.
#include "tools/files/new_file.h"

#include "tests/tools/temporary_folder.h"
#include "tools/files/failure.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvik {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

TEST(NewFile, takes_the_old_ones_place_only_when_complete) {
    const TemporaryFolder folder;
    write_file(folder / "kept", "old");
    fs::permissions(folder / "kept", fs::perms{0640});
    {
        NewFile file(folder / "kept");
        file.write("unfinished", 10);
    }
    EXPECT_EQ(read_file(folder / "kept"), "old");
    EXPECT_EQ(folder.names(), Names{"kept"});
    NewFile file(folder / "kept");
    file.write("new", 3);
    EXPECT_EQ(read_file(folder / "kept"), "old");
    file.commit();
    EXPECT_EQ(read_file(folder / "kept"), "new");
    EXPECT_EQ(fs::status(folder / "kept").permissions(), fs::perms{0640});
    EXPECT_EQ(folder.names(), Names{"kept"});
}

TEST(NewFile, leaves_nothing_behind_when_interrupted) {
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(number);
        const TemporaryFolder folder;
        write_file(folder / "kept", "old");
        const pid_t child = fork();
        if (child == 0) {
            NewFile file(folder / "kept");
            file.write("unfinished", 10);
            kill(getpid(), number);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number);
        EXPECT_EQ(read_file(folder / "kept"), "old");
        EXPECT_EQ(folder.names(), Names{"kept"});
    }
}

TEST(NewFile, writes_through_links_and_straight_to_devices) {
    const TemporaryFolder folder;
    write_file(folder / "target", "old");
    fs::create_symlink("target", folder / "link");
    NewFile linked(folder / "link");
    linked.write("new", 3);
    linked.commit();
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(read_file(folder / "target"), "new");

    NewFile null("/dev/null");
    null.write("gone", 4);
    null.commit();
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    NewFile full("/dev/full");
    full.write("no room", 7);
    EXPECT_THROW(full.commit(), Failure);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(NewFile, says_why_it_cannot_write) {
    const TemporaryFolder folder;
    const auto reason = [](const fs::path& path) -> std::string {
        try {
            NewFile file(path);
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "none";
    };
    EXPECT_EQ(reason(folder.path()), "cannot write " + folder.path().string() + ": it is a folder");
    const fs::path nowhere = folder / "no/file";
    EXPECT_EQ(reason(nowhere), "cannot write " + nowhere.string() + ": No such file or directory");
}

} // namespace
} // namespace tarvik
