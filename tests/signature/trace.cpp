// Tracing drives.
#include "tests/signature/trace.h"

#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "tests/support/game_hash.h"

#include <cstdio>
#include <sstream>

namespace tarvik::test {

namespace {

constexpr const char* COLUMNS = "frame x y heading speed gear penalty cycle last best difficulty "
                                "race view_x view_y states pictures";

std::string line_of(int frame, const Hash& states, const Hash& pictures) {
    constexpr int P = PLAYER_SLOT;
    const auto number = [](float value) { return static_cast<double>(value); };
    char line[400];
    std::snprintf(
        line, sizeof line, "%d %.9g %.9g %.9g %.9g %d %.9g %d %d %d %d %d %d %d %08x%08x %08x%08x",
        frame, number(car_x[P]), number(car_y[P]), number(heading[P]), number(speed[P]), gear[P],
        number(penalty[P]), cycle[P], last_cycle[P], best_cycle[P], difficulty, race_number, view_x,
        view_y, static_cast<unsigned>(states.value() >> 32U), static_cast<unsigned>(states.value()),
        static_cast<unsigned>(pictures.value() >> 32U), static_cast<unsigned>(pictures.value()));
    return line;
}

std::vector<std::string> words_of(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        words.push_back(word);
    }
    return words;
}

} // namespace

Trace run_drive(const Drive& drive) {
    restart_game(drive);
    Trace trace;
    trace.lines.emplace_back(COLUMNS);
    Hash states;
    Hash pictures;
    for (int frame = 1; frame <= drive.frames; ++frame) {
        drive.script(frame);
        race_frame();
        add_state(states);
        pictures.add(frame_buffer, static_cast<std::size_t>(screen_width * screen_height) * 3);
        if (frame % TRACE_STEP == 0 || frame == drive.frames) {
            trace.lines.push_back(line_of(frame, states, pictures));
        }
    }
    const std::uint64_t of_pictures = pictures.value();
    states.add(&of_pictures, sizeof of_pictures);
    trace.signature = states.value();
    return trace;
}

std::string first_difference(const std::vector<std::string>& expected,
                             const std::vector<std::string>& actual) {
    const auto columns = words_of(COLUMNS);
    for (std::size_t i = 0; i < expected.size() && i < actual.size(); ++i) {
        const auto wanted = words_of(expected[i]);
        const auto got = words_of(actual[i]);
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const std::string want = column < wanted.size() ? wanted[column] : "nothing";
            const std::string have = column < got.size() ? got[column] : "nothing";
            if (want != have) {
                return "frame " + (got.empty() ? std::string("?") : got[0]) + ": " +
                       columns[column] + " is " + have + ", expected " + want;
            }
        }
    }
    if (expected.size() != actual.size()) {
        return "the drive has " + std::to_string(actual.size()) + " lines, expected " +
               std::to_string(expected.size());
    }
    return {};
}

} // namespace tarvik::test
