// What is looked at and what is written down.
#include "tests/signature/run.h"

#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "tests/support/ring.h"

#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace tarvik::test {

namespace {

constexpr long LINE_INTERVAL = 20;
constexpr long PICTURE_INTERVAL = 10; // of runs without a trace

template <typename First, typename... Others>
void write_words(std::ostream& out, const First& first, const Others&... others) {
    out << first;
    ((out << ' ' << others), ...);
    out << '\n';
}

} // namespace

Run::Run(std::uint32_t seed, std::ostream* trace) : seed_(seed), trace_(trace) {
    restart_on_ring(seed);
    if (trace_ != nullptr) {
        *trace_ << "frame x y heading speed gear penalty cycle last best difficulty race view_x "
                   "view_y states pictures\n"
                << std::setprecision(9);
    }
}

void Run::frame() {
    race_frame();
    ++frame_;
    const std::string fault = invariants_.fault();
    expect(fault.empty(), fault);
    add_state(states_);
    if (trace_ != nullptr || frame_ % PICTURE_INTERVAL == 0) {
        pictures_.add(frame_buffer, static_cast<std::size_t>(screen_width * screen_height) * 3);
    }
    if (frame_ % LINE_INTERVAL == 0) {
        expect(Invariants::is_picture_whole(), "a logical pixel is not of one colour");
        write_line();
    }
}

void Run::expect(bool holds, const std::string& what) const {
    if (!holds) {
        throw std::runtime_error("frame " + std::to_string(frame_) + ": " + what);
    }
}

std::uint64_t Run::number() const {
    Hash both = states_;
    const std::uint64_t of_pictures = pictures_.value();
    both.add(&of_pictures, sizeof of_pictures);
    return both.value();
}

void Run::write_line() const {
    constexpr int P = PLAYER_SLOT;
    if (trace_ != nullptr) {
        write_words(*trace_, frame_, car_x[P], car_y[P], heading[P], speed[P], gear[P], penalty[P],
                    cycle[P], last_cycle[P], best_cycle[P], difficulty, race_number, view_x, view_y,
                    hex(states_.value()), hex(pictures_.value()));
    }
}

std::string hex(std::uint64_t number) {
    std::ostringstream out;
    out << std::hex << std::setw(16) << std::setfill('0') << number;
    return out.str();
}

} // namespace tarvik::test
