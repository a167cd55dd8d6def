// What is looked at and what is written down.
#include "tests/signature/run.h"

#include "race/race_frame.h"
#include "race/race_state.h"
#include "race/view.h"
#include "render/frame_buffer.h"
#include "tests/support/frame.h"
#include "tests/support/invariants.h"
#include "tests/support/ring.h"

#include <cstdio>
#include <cstring>
#include <iomanip>
#include <stdexcept>

namespace tarvik::test {

namespace {

constexpr int P = PLAYER_SLOT;
constexpr long LINE_INTERVAL = 20;
constexpr long PIXEL_INTERVAL = 10; // of runs without a trace

/// A running hash: FNV-1a's constants on words, with a fold of the high bits so that every bit
/// reaches every other. Eight bytes at a time if there is no remainder, else byte by byte.
void add_bytes(std::uint64_t& hash, const void* data, std::size_t size) {
    const std::size_t step = size % sizeof(std::uint64_t) == 0 ? sizeof(std::uint64_t) : 1;
    for (std::size_t at = 0; at < size; at += step) {
        std::uint64_t word = 0;
        std::memcpy(&word, static_cast<const std::uint8_t*>(data) + at, step);
        hash = (hash ^ word) * 0x100000001B3U;
        hash ^= hash >> 29U;
    }
}

template <typename... Values>
void add_values(std::uint64_t& hash, const Values&... values) {
    (add_bytes(hash, &values, sizeof values), ...);
}

/// The race, the ghosts' places in this frame included.
void add_state(std::uint64_t& hash) {
    add_values(hash, car_x[P], car_y[P], heading[P], speed[P], gear[P], penalty[P], cycle[P],
               last_cycle[P], best_cycle[P], frames_since_steer[P], steer_count[P], difficulty,
               race_number, view_x, view_y);
    for (int slot = P; slot <= LAST_GHOST_SLOT; ++slot) {
        const std::int32_t frame = cycle[P];
        add_values(hash, ghost_x[slot][frame], ghost_y[slot][frame], ghost_heading[slot][frame]);
    }
}

template <typename... Values>
void write_words(std::ostream& out, const Values&... values) {
    ((out << values << ' '), ...);
}

} // namespace

std::uint64_t run(const Drive& drive, std::ostream* trace) {
    std::uint64_t states = 0xCBF29CE484222325U;
    std::uint64_t pixels = states;
    restart_on_ring(drive.seed);
    luck = drive.luck;
    if (trace != nullptr) {
        *trace << "frame x y heading speed gear penalty cycle last best difficulty race view_x "
                  "view_y states pictures\n"
               << std::setprecision(9);
    }
    for (long frame = 1; frame <= drive.frames; ++frame) {
        drive.steer(frame);
        race_frame();
        if (const std::string fault = find_fault(); !fault.empty()) {
            throw std::runtime_error("frame " + std::to_string(frame) + ": " + fault);
        }
        add_state(states);
        if (trace != nullptr || frame % PIXEL_INTERVAL == 0) {
            add_bytes(pixels, frame_buffer, frame_bytes());
        }
        if (frame % LINE_INTERVAL == 0) {
            drawn_frame(); // throws if a logical pixel is not of one colour
            if (trace != nullptr) {
                write_words(*trace, frame, car_x[P], car_y[P], heading[P], speed[P], gear[P],
                            penalty[P], cycle[P], last_cycle[P], best_cycle[P], difficulty,
                            race_number, view_x, view_y, hex(states));
                *trace << hex(pixels) << '\n';
            }
        }
    }
    add_values(states, pixels);
    return states;
}

std::string hex(std::uint64_t number) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
    return digits;
}

} // namespace tarvik::test
