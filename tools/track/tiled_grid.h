// A value for every cell of a large grid of which only a small part is ever touched.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace tarvik {

/// Reads as `untouched` wherever nothing was written; takes memory in tiles of 64 by 64 cells.
template <typename T>
class TiledGrid {
  public:
    TiledGrid(int width, int height, T untouched)
        : tiles_across_(tiles_for(width)), untouched_(untouched),
          tiles_(tiles_across_ * tiles_for(height)) {}

    [[nodiscard]] T get(int x, int y) const {
        const auto& tile = tiles_[tile_index(x, y)];
        return tile == nullptr ? untouched_ : (*tile)[cell_index(x, y)];
    }
    void set(int x, int y, T value) {
        auto& tile = tiles_[tile_index(x, y)];
        if (tile == nullptr) {
            tile = std::make_unique<Tile>();
            tile->fill(untouched_);
        }
        (*tile)[cell_index(x, y)] = value;
    }

  private:
    static constexpr int TILE = 64;
    using Tile = std::array<T, static_cast<std::size_t>(TILE) * TILE>;

    static std::size_t tiles_for(int cells) {
        return static_cast<std::size_t>(cells + TILE - 1) / TILE;
    }
    [[nodiscard]] std::size_t tile_index(int x, int y) const {
        return static_cast<std::size_t>(y / TILE) * tiles_across_ +
               static_cast<std::size_t>(x / TILE);
    }
    static std::size_t cell_index(int x, int y) {
        return static_cast<std::size_t>(y % TILE) * TILE + static_cast<std::size_t>(x % TILE);
    }

    std::size_t tiles_across_;
    T untouched_;
    std::vector<std::unique_ptr<Tile>> tiles_;
};

} // namespace tarvik
