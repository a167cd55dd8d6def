// What is looked at and what is written down.
#include "tests/signature/run.h"

#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "tests/support/invariants.h"
#include "tests/support/picture.h"
#include "tests/support/ring.h"

#include <cstdio>
#include <cstring>
#include <iomanip>
#include <stdexcept>

namespace tarvik::test {

namespace {

constexpr int P = PLAYER_SLOT;
constexpr long LINE_INTERVAL = 20;
constexpr long PICTURE_INTERVAL = 10; // of runs without a trace

template <typename... Values>
void add_values(Hash& hash, const Values&... values) {
    (hash.add(&values, sizeof values), ...);
}

/// The race, the ghosts' places in this frame included.
void add_state(Hash& hash) {
    add_values(hash, car_x[P], car_y[P], heading[P], speed[P], gear[P], penalty[P], cycle[P],
               last_cycle[P], best_cycle[P], frames_since_steer[P], steer_count[P], difficulty,
               race_number, view_x, view_y);
    for (int slot = P; slot <= LAST_GHOST_SLOT; ++slot) {
        const std::int32_t frame = cycle[P];
        add_values(hash, ghost_x[slot][frame], ghost_y[slot][frame], ghost_heading[slot][frame]);
    }
}

template <typename First, typename... Others>
void write_words(std::ostream& out, const First& first, const Others&... others) {
    out << first;
    ((out << ' ' << others), ...);
    out << '\n';
}

} // namespace

void Hash::add(const void* data, std::size_t size) {
    const std::size_t step = size % sizeof(std::uint64_t) == 0 ? sizeof(std::uint64_t) : 1;
    for (std::size_t at = 0; at < size; at += step) {
        std::uint64_t word = 0;
        std::memcpy(&word, static_cast<const std::uint8_t*>(data) + at, step);
        state_ = (state_ ^ word) * 0x100000001B3U;
        state_ ^= state_ >> 29U;
    }
}

Run::Run(std::uint32_t seed, std::ostream* trace) : trace_(trace) {
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
    if (const std::string fault = find_fault(); !fault.empty()) {
        throw std::runtime_error("frame " + std::to_string(frame_) + ": " + fault);
    }
    add_state(states_);
    if (trace_ != nullptr || frame_ % PICTURE_INTERVAL == 0) {
        pictures_.add(frame_buffer, frame_bytes());
    }
    if (frame_ % LINE_INTERVAL == 0) {
        drawn_picture(); // throws if a logical pixel is not of one colour
        if (trace_ != nullptr) {
            write_words(*trace_, frame_, car_x[P], car_y[P], heading[P], speed[P], gear[P],
                        penalty[P], cycle[P], last_cycle[P], best_cycle[P], difficulty, race_number,
                        view_x, view_y, hex(states_.value()), hex(pictures_.value()));
        }
    }
}

std::uint64_t Run::number() const {
    Hash both = states_;
    const std::uint64_t of_pictures = pictures_.value();
    both.add(&of_pictures, sizeof of_pictures);
    return both.value();
}

std::string hex(std::uint64_t number) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
    return digits;
}

} // namespace tarvik::test
