// Colours in a drawing that somebody may have meant for roads, and that read as grass.
#include "tools/data/grass_colours.h"

#include "tools/data/cell_rule.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tarvik {
namespace {

constexpr std::uint32_t RGB = 0xffffff;
constexpr std::uint32_t GAME_GRASS = 0x00c800;

// Of the samples: as many as in a line ten cells wide and as long as a car drives in two seconds.
constexpr std::size_t FEWEST_PART = 25000;
constexpr std::size_t MOST_COLOURS = 3; // a blend has hundreds; the first few will do

} // namespace

void GrassColours::look_at(const std::uint32_t* row, const std::uint32_t* above, std::size_t count,
                           std::size_t step) {
    std::size_t* last = nullptr;
    std::uint32_t last_colour = 0;
    for (std::size_t x = 1; x < count; x += step) {
        ++samples_;
        const std::uint32_t colour = row[x] & RGB;
        if (colour == GAME_GRASS || colour != (row[x - 1] & RGB) || colour != (above[x] & RGB)) {
            continue;
        }
        if (last == nullptr || colour != last_colour) {
            if (grass_measure(colour) < 0) {
                continue;
            }
            last = &seen_[colour];
            last_colour = colour;
        }
        ++*last;
    }
}

std::vector<std::string> GrassColours::surprising() const {
    using Seen = std::pair<std::size_t, std::uint32_t>;
    std::vector<Seen> most;
    for (const auto& [colour, count] : seen_) {
        if (count > samples_ / FEWEST_PART) {
            most.emplace_back(count, colour);
        }
    }
    std::ranges::sort(most, std::greater());
    // A colour other than the game's grass that covers most of the page is its background.
    if (!most.empty() && most.front().first > samples_ / 2) {
        most.erase(most.begin());
    }
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(most.size(), MOST_COLOURS); ++i) {
        char name[8];
        std::snprintf(name, sizeof name, "#%06x", static_cast<unsigned>(most[i].second));
        names.emplace_back(name);
    }
    return names;
}

} // namespace tarvik
