// A driver without a plan: the same one for the same seed, on every machine.
#pragma once

#include <cstdint>
#include <random>

namespace tarvik::test {

class RandomDriver {
  public:
    explicit RandomDriver(std::uint32_t seed) : luck_(seed) {}

    /// Before a frame: presses keys and moves the mouse, now round the ring road, now anyhow, now
    /// far off the road and off the grid; switches tracks and difficulty now and then.
    void act();

  private:
    enum class Style { ROUND_THE_RING, ANYHOW, STRAIGHT_AWAY };

    std::uint32_t below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(luck_()) % limit;
    }
    void change_style();
    void act_anyhow();

    std::mt19937 luck_;
    Style style_ = Style::ROUND_THE_RING;
    int frames_left_ = 0; ///< in this style
    std::int32_t gear_ = 0;
};

} // namespace tarvik::test
