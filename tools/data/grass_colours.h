// Colours in a drawing that somebody may have meant for roads, and that read as grass.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tarvik {

/// Counts samples from inside areas of one colour, so that the soft edges of roads do not count.
class GrassColours {
  public:
    /// A row of pixels, 0xRRGGBB each (bits above are ignored), and the row above it.
    void look_at(const std::uint32_t* row, const std::uint32_t* above, std::size_t count,
                 std::size_t step);

    /// The colours worth mentioning, as "#c0c0c0", the most frequent first: neither the game's
    /// grass nor the drawing's background, and seen in more than a few spots.
    [[nodiscard]] std::vector<std::string> surprising() const;

  private:
    std::map<std::uint32_t, std::size_t> seen_;
    std::size_t samples_ = 0;
};

} // namespace tarvik
