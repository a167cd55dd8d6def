// How fast frames and keys come, measured from outside, and how much memory they take.
#include "tests/desktop/play_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>

namespace tarvik {

namespace {

struct Archive {
    const char* name;
    std::string records;                ///< as Perl prints them; none: the usual archive
    int megabytes;                      ///< of its pixels in memory, at most
    unsigned long colour = ROAD_COLOUR; ///< of the view, where a picture can cover it
};

// 26754 is the side of the largest square whose bytes fit 31 bits.
const Archive ARCHIVES[] = {
    {"UsualPictures", "", 0},
    {"ManyPictures", "(pack('l<3', 256, 256, 3) . qq(\\xC8\\x1E\\x28) x 65536) x 251", 50,
     MARKER_COLOUR},
    {"ClaimsOfTwoGigabytes", "pack('l<3', 26754, 26754, 3) x 1400; truncate STDOUT, 5e9", 135},
    {"AHugeMarker",
     "pack('l<3') x 30, pack('l<3', 26754, 26754, 3), qq(\\xC8\\x1E\\x28) x 33333333", 135,
     MARKER_COLOUR},
};

using Timing = PlayTest;

class ArchiveTiming : public PlayTest, public testing::WithParamInterface<Archive> {};

} // namespace

TEST_P(ArchiveTiming, SixtyFramesASecondAndNoMoreMemoryThanThePicturesHold) {
    const auto& [name, records, megabytes, colour] = GetParam();
    if (!records.empty()) {
        const Command write = {"perl", "-e", "print +" + records};
        ASSERT_EQ(ChildProcess(write, {.output = folder_ / "data/graphics.dat"}).wait(), 0);
    }
    start_game(server_.display());
    ASSERT_TRUE(player_.finds_game_with(colour, BARE_PLACE.x, BARE_PLACE.y));
    EXPECT_THAT(best_rate(player_), testing::AllOf(testing::Ge(59), testing::Le(62)));
#ifndef __SANITIZE_ADDRESS__ // which needs as much memory again
    constexpr int USUAL_MEGABYTES = 400;
    // The libraries' code does not count: it is as much as the OpenGL driver brings.
    const std::string peak_megabytes =
        output_of({"awk",
                   "/VmHWM/ { peak = $2 } /RssFile/ { code = $2 } "
                   "END { print int((peak - code) / 1000) }",
                   "/proc/" + std::to_string(game_->id()) + "/status"});
    EXPECT_LE(std::stoi(peak_megabytes), USUAL_MEGABYTES + megabytes);
#endif
}

INSTANTIATE_TEST_SUITE_P(Desktop, ArchiveTiming, testing::ValuesIn(ARCHIVES),
                         [](const auto& each) { return std::string(each.param.name); });

// From the press of a key to the frame that shows its effect there are three frames: the one being
// drawn, the one that takes the key, and the next one with the new text. Two more are allowed. A
// flood that delays keys delays all of them; a busy machine may delay some.
TEST_F(Timing, AFloodOfMouseMovesDoesNotDelayAKey) {
    constexpr int MOST_FRAMES = 3 + 2;
    constexpr int MOVES = 300;
    start_race();
    int fewest = MOVES;
    const KeySym digits[] = {XK_1, XK_2, XK_3, XK_1, XK_3, XK_2};
    for (const KeySym key : digits) {
        const Pixels before = player_.look_at(DIFFICULTY);
        game_->send(SIGSTOP);
        for (int move = 0; move < MOVES; ++move) {
            player_.move_mouse_to(200 + move % 20, 200);
        }
        player_.tap(key);
        const int first = player_.count_frames();
        game_->send(SIGCONT);
        ASSERT_TRUE(player_.sees_change(DIFFICULTY, before));
        fewest = std::min(fewest, player_.count_frames() - first);
    }
    EXPECT_LE(fewest, MOST_FRAMES);
}

} // namespace tarvik
