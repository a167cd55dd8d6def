// Whatever is there instead of the data, the game starts, plays on without it, and ends.
#include "tests/desktop/play_fixture.h"

namespace tarvik {

namespace {

constexpr int IMPOSSIBLE_HERE = 77; // exit code of a script that the system refuses

struct Fault {
    const char* name;
    std::string script;                              ///< run in the folder that holds `data`
    std::string start = "exec '" TARVIK_PROGRAM "'"; ///< likewise
    std::string holds_later = ":";                   ///< likewise, once both tracks were loaded
};

std::string for_each_file(const std::string& command) {
    return "for file in data/race1.map data/race2.map data/graphics.dat; do rm -f $file; " +
           command + "; done";
}

// Root may enter every folder, so the game runs as another user then.
constexpr const char* START_AS_OTHER_USER = R"(user=
    if [ $(id -u) = 0 ]; then
        chmod 777 .; user='setpriv --reuid=65534 --clear-groups'
    fi
    $user test -x ')" TARVIK_PROGRAM "' || exit 77; exec $user '" TARVIK_PROGRAM "'";

constexpr const char* CAN_BE_DELETED = "chmod 700 data";

// One inode, which the folder itself takes.
constexpr const char* START_ON_FULL_DISK = R"(unshare -rm true || exit 77; exec unshare -rm sh -c "
    mount -t tmpfs -o nr_inodes=1 none data && ! touch data/file 2>&- || exit 77
    exec ')" TARVIK_PROGRAM "'\"";

const Fault FAULTS[] = {
    {"Folders", for_each_file("mkdir $file")},
    {"Pipes", for_each_file("mkfifo $file")},
    {"Sockets", for_each_file("perl -MIO::Socket::UNIX -e "
                              "'IO::Socket::UNIX->new(Local => shift) or die' $file")},
    {"Zeros", for_each_file("ln -s /dev/zero $file")},
    {"Terminals", for_each_file("ln -s /dev/ptmx $file")},
    {"LinksToThemselves", for_each_file("ln -s ${file#data/} $file")},
    {"LinksToNowhere", for_each_file("ln -s no/folder $file")},
    {"ReadOnlyFiles", for_each_file("truncate -s 100000000 $file; chmod 400 $file")},
    {"WriteOnlyFiles", for_each_file("truncate -s 100000000 $file; chmod 200 $file")},
    {"EmptyFiles", for_each_file(": >$file")},
    {.name = "MissingFiles",
     .script = "rm data/*",
     .holds_later = "test \"$(stat -c %s data/race1.map data/race2.map data/graphics.dat | xargs)\""
                    " = '0 0 0'"},
    {.name = "NoFolder", .script = "rm -r data", .holds_later = "! test -e data"},
    {"AFileForTheFolder", "rm -r data; echo >data"},
    {"APipeForTheFolder", "rm -r data; mkfifo data"},
    {"ADeletedWorkingFolder", "mkdir gone; cd gone; rmdir ../gone"},
    {"AClosedFolder", "chmod 0 data", START_AS_OTHER_USER, CAN_BE_DELETED},
    {"AReadOnlyFolder", "rm data/*; chmod 555 data", START_AS_OTHER_USER, CAN_BE_DELETED},
    {"AFullDisk", ":", START_ON_FULL_DISK},
};

class DataFault : public PlayTest, public testing::WithParamInterface<Fault> {};

} // namespace

TEST_P(DataFault, LeavesGrassToDriveOn) {
    start_game(server_.display(), {"sh", "-c", GetParam().script + "\n" + GetParam().start});
    ASSERT_TRUE(player_.waits_until(
        [this] { return player_.count_shown_windows() > 0 || !game_->is_running(); }));
    if (game_->wait(std::chrono::milliseconds(0)) == IMPOSSIBLE_HERE) {
        game_.reset();
        GTEST_SKIP() << "the system refuses this";
    }
    ASSERT_TRUE(player_.finds_game_with(GRASS_COLOUR, BARE_PLACE.x, BARE_PLACE.y));
    const Pixels difficulty = player_.look_at(DIFFICULTY);
    player_.tap(XK_bracketright);
    player_.tap(XK_1); // once it takes effect, the other has been handled
    ASSERT_TRUE(player_.sees_change(DIFFICULTY, difficulty));
    EXPECT_EQ(player_.look_at(BARE_PLACE), Pixels{GRASS_COLOUR});
    const Command check = {"sh", "-c", GetParam().holds_later};
    EXPECT_EQ(ChildProcess(check, {.folder = folder_}).wait(), 0);
}

INSTANTIATE_TEST_SUITE_P(Desktop, DataFault, testing::ValuesIn(FAULTS),
                         [](const auto& each) { return std::string(each.param.name); });

// The bracket key, held, loads a track in every frame while somebody cuts and fills the files.
TEST_F(Play, FilesMayShrinkAndGrowWhileTheyAreRead) {
    write_file(folder_ / "data/race2.map", "");
    const ChildProcess cutter({"perl", "-e", R"(while (1) {
            for $size (rand 1000, 100_000_000) {
                truncate "data/$_", $size for ("race2.map", "graphics.dat");
                select undef, undef, undef, 0.001;
            }
        })"},
                              {.folder = folder_});
    start_game(server_.display());
    ASSERT_TRUE(player_.finds_game_with(ROAD_COLOUR, BARE_PLACE.x, BARE_PLACE.y));
    player_.press(XK_bracketright);
    EXPECT_TRUE(player_.sees_frames(60));
}

} // namespace tarvik
