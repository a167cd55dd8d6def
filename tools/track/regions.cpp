// Connected regions of a grid, found by joining the runs of neighbouring rows.
#include "tools/track/regions.h"

#include <algorithm>
#include <numeric>

namespace tarvik {
namespace {

int root_of(std::vector<int>& joined_with, int run) {
    auto& parent = joined_with;
    while (parent[static_cast<std::size_t>(run)] != run) {
        int& above = parent[static_cast<std::size_t>(run)];
        above = parent[static_cast<std::size_t>(above)];
        run = above;
    }
    return run;
}

} // namespace

Regions::Regions(const CellMask& mask, int side, bool wanted, bool diagonal) : side_(side) {
    find_runs(mask, wanted);
    std::vector<int> joined_with(runs_.size());
    std::iota(joined_with.begin(), joined_with.end(), 0);
    const int reach = diagonal ? 1 : 0;
    for (std::size_t y = 1; y < row_end_.size(); ++y) {
        std::size_t above = y < 2 ? 0 : row_end_[y - 2];
        for (std::size_t run = row_end_[y - 1]; run < row_end_[y]; ++run) {
            while (above < row_end_[y - 1] && runs_[above].last + reach < runs_[run].first) {
                ++above;
            }
            for (std::size_t other = above;
                 other < row_end_[y - 1] && runs_[other].first <= runs_[run].last + reach;
                 ++other) {
                const int one = root_of(joined_with, static_cast<int>(other));
                joined_with[static_cast<std::size_t>(root_of(joined_with, static_cast<int>(run)))] =
                    one;
            }
        }
    }
    number_regions(joined_with);
}

void Regions::find_runs(const CellMask& mask, bool wanted) {
    for (int y = 0; y < side_; ++y) {
        const std::uint8_t* row =
            mask.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(side_);
        for (int x = 0; x < side_; ++x) {
            if ((row[x] != 0) != wanted) {
                continue;
            }
            const int first = x;
            while (x + 1 < side_ && (row[x + 1] != 0) == wanted) {
                ++x;
            }
            runs_.push_back({first, x, -1});
        }
        row_end_.push_back(runs_.size());
    }
}

void Regions::number_regions(std::vector<int>& joined_with) {
    std::size_t run = 0;
    for (int y = 0; y < side_; ++y) {
        for (; run < row_end_[static_cast<std::size_t>(y)]; ++run) {
            Run& here = runs_[run];
            const auto root = static_cast<std::size_t>(root_of(joined_with, static_cast<int>(run)));
            if (runs_[root].region < 0) {
                runs_[root].region = static_cast<int>(regions_.size());
                regions_.push_back({here.first, y, here.last, y, {here.first, y}});
            }
            here.region = runs_[root].region;
            Region& region = regions_[static_cast<std::size_t>(here.region)];
            region.left = std::min(region.left, here.first);
            region.right = std::max(region.right, here.last);
            region.bottom = y;
        }
    }
}

int Regions::at(Cell cell) const {
    const auto y = static_cast<std::size_t>(cell.y);
    const auto begin = runs_.begin() + static_cast<std::ptrdiff_t>(y == 0 ? 0 : row_end_[y - 1]);
    const auto end = runs_.begin() + static_cast<std::ptrdiff_t>(row_end_[y]);
    const auto run =
        std::partition_point(begin, end, [&](const Run& each) { return each.last < cell.x; });
    return run != end && run->first <= cell.x ? run->region : -1;
}

void Regions::keep_only(int region, CellMask& mask, std::uint8_t value) const {
    std::size_t run = 0;
    for (std::size_t y = 0; y < row_end_.size(); ++y) {
        std::uint8_t* row = mask.data() + y * static_cast<std::size_t>(side_);
        std::uint8_t* rest = row; // what lies before it is decided
        for (; run < row_end_[y]; ++run) {
            if (runs_[run].region == region) {
                std::fill(rest, row + runs_[run].first, value);
                rest = row + runs_[run].last + 1;
            }
        }
        std::fill(rest, row + side_, value);
    }
}

} // namespace tarvik
