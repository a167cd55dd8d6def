// What goes into the hash.
#include "tests/support/game_hash.h"

#include "race/race_state.h"
#include "race/view.h"

#include <cstring>

namespace tarvik::test {

namespace {

template <typename... Values>
void add_values(Hash& hash, const Values&... values) {
    (hash.add(&values, sizeof values), ...);
}

} // namespace

void Hash::add(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    for (; size >= sizeof(std::uint64_t); size -= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, sizeof word);
        add_word(word);
        bytes += sizeof word;
    }
    for (; size > 0; --size) {
        add_word(*bytes++);
    }
}

void add_state(Hash& hash) {
    constexpr int P = PLAYER_SLOT;
    add_values(hash, car_x[P], car_y[P], heading[P], speed[P], gear[P], penalty[P], cycle[P],
               last_cycle[P], best_cycle[P], frames_since_steer[P], steer_count[P], difficulty,
               race_number, view_x, view_y);
    for (int slot = P; slot <= LAST_GHOST_SLOT; ++slot) {
        const std::int32_t frame = cycle[P];
        add_values(hash, ghost_x[slot][frame], ghost_y[slot][frame], ghost_heading[slot][frame]);
    }
}

} // namespace tarvik::test
