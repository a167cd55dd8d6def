// Which colours of a drawing are grass and which are road.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tarvik {

/// Light from here on: midway between the game's road grey (60, 60, 60) and white paper.
inline constexpr int LIGHT_FROM = 160;
/// Green when green exceeds both red and blue by this much.
inline constexpr int GREEN_FROM = 64;

/// The rule in words, for --help.
inline constexpr const char* CELL_RULE_TEXT =
    "Colours: a cell is grass where the drawing is transparent, light (brightness 160 or more of "
    "255; white paper) or clearly green (green at least 64 above both red and blue; the game's "
    "grass 0,200,0). Everything else is road: black, dark colours, greys up to 159 (the game's "
    "road 60,60,60).";

/// How much a colour (components 0 to 255) is grass: 0 or more is grass, below 0 is road. Grows
/// evenly along a blend from road to grass, so that soft edges keep their place.
constexpr int grass_measure(int red, int green, int blue) {
    const int brightness = (299 * red + 587 * green + 114 * blue) / 1000;
    return std::max(brightness - LIGHT_FROM, green - std::max(red, blue) - GREEN_FROM);
}

/// The same of 0xRRGGBB; bits above are ignored.
constexpr int grass_measure(std::uint32_t rgb) {
    return grass_measure(static_cast<int>(rgb >> 16 & 255), static_cast<int>(rgb >> 8 & 255),
                         static_cast<int>(rgb & 255));
}

} // namespace tarvik
