// Whether a map can be raced. Two kinds of room are looked at: what a car needs (a disc that keeps
// off the grass all the way) must be there; what a car might get away with (its corners on the road
// at the end of each frame, leaps in between) must not lead past the gate or off the course.
#include "tools/track/track_check.h"

#include "tools/track/car_room.h"
#include "tools/track/clearance.h"
#include "tools/track/path_search.h"
#include "tools/track/regions.h"
#include "tools/track/ways.h"
#include "tools/track/widest_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tarvik {
namespace {

constexpr Cell ABOVE_GATE = {BOX_CENTRE_X, BOX_CENTRE_Y - 1};
constexpr Cell START = {START_CELL_X, START_CELL_Y};

// Half the narrowest road, cells. Near the gate the road may be as narrow as the box itself.
constexpr int LEAST_CLEARANCE_AT_GATE = 8;
constexpr int LEAST_CLEARANCE = 12;
constexpr int PLEASANT_CLEARANCE = 40;
constexpr int GATE_ZONE = 600; // cells from the box in which the road may be a funnel

// The corners of a car that goes straight up are this far left and right of it and this far behind.
constexpr int CAR_SIDE = 5;

// A car with two corners on the road beside the gate is at most this far from it: the corner that
// is farthest from its position, and the room for a leap.
constexpr int BESIDE_GATE = 12;

// Decoration that saves less than this, about a third of a second, is no shortcut.
constexpr double LARGEST_SAVING = 60;

std::string whole(double number) {
    return std::to_string(std::lround(number));
}

std::string place(Cell cell) {
    std::string text = "(";
    text.append(std::to_string(cell.x)).append(", ").append(std::to_string(cell.y)).append(")");
    return text;
}

// The road's width across a cell: the shortest of the lines through it.
int width_at(TrackView track, Cell cell) {
    constexpr int DIRECTIONS = 32;
    constexpr double STEP = 0.25;
    double narrowest = 2.0 * LARGEST_CLEARANCE;
    for (int i = 0; i < DIRECTIONS; ++i) {
        double length = 0;
        for (const int sense : {1, -1}) {
            const double angle = i * std::numbers::pi / DIRECTIONS;
            const double dx = sense * std::cos(angle);
            const double dy = sense * std::sin(angle);
            double distance = 0;
            while (distance < LARGEST_CLEARANCE &&
                   track.is_road(static_cast<int>(std::floor(cell.x + 0.5 + distance * dx)),
                                 static_cast<int>(std::floor(cell.y + 0.5 + distance * dy)))) {
                distance += STEP;
            }
            length += distance;
        }
        narrowest = std::min(narrowest, length);
    }
    return static_cast<int>(std::lround(narrowest));
}

// The first grass cell of a rectangle, if there is one.
bool find_grass(TrackView track, Rectangle area, Cell& found) {
    for (int y = area.top; y <= area.bottom; ++y) {
        for (int x = area.left; x <= area.right; ++x) {
            if (!track.is_road(x, y)) {
                found = {x, y};
                return true;
            }
        }
    }
    return false;
}

class Check {
  public:
    explicit Check(TrackView track) : track_(track), gate_(gate_row(track)) {}

    TrackReport run() {
        check_start();
        if (report_.can_be_raced()) {
            clearance_ = squared_clearance(track_);
            check_loop();
            clearance_ = {};
            check_gate();
        }
        if (report_.can_be_raced()) {
            check_shortcuts();
        }
        return std::move(report_);
    }

  private:
    void fault(Cell cell, std::string text) {
        report_.faults.push_back({cell, std::move(text)});
    }

    void check_start() {
        Cell grass;
        const Rectangle box{BOX_LEFT, BOX_TOP, BOX_RIGHT, BOX_BOTTOM};
        if (find_grass(track_, box, grass)) {
            fault(grass, "the start/finish box (columns and rows 2392 to 2407) is not all road");
        }
        const Rectangle car{START_CELL_X - CAR_SIDE, START_CELL_Y - CAR_SIDE,
                            START_CELL_X + CAR_SIDE - 1, START_CELL_Y + CAR_SIDE - 1};
        const Rectangle lane{car.left, BOX_BOTTOM + 1, car.right, car.top - 1};
        if (find_grass(track_, car, grass)) {
            fault(grass, "the car does not start on the road: its start at (2400, 2480) needs "
                         "columns 2395 to 2404 and rows 2475 to 2484");
        } else if (find_grass(track_, lane, grass)) {
            fault(grass, "the way straight up from the start to the box is not all road");
        }
    }

    [[nodiscard]] WidestPath widest(bool without_gate_zone) const {
        return widest_path(track_.side, ABOVE_GATE, START, [&](int x, int y) -> std::uint16_t {
            if (gate_.contains(x, y)) {
                return 0;
            }
            const std::uint16_t clearance = clearance_[track_.index(x, y)];
            const bool in_zone =
                std::hypot(x - BOX_CENTRE_X, y - BOX_CENTRE_Y) < GATE_ZONE && without_gate_zone;
            return clearance > 0 && in_zone ? std::uint16_t{UINT16_MAX} : clearance;
        });
    }

    void narrow_fault(Cell cell, int least_clearance, const char* where) {
        fault(cell, "the road is too narrow: " + std::to_string(width_at(track_, cell)) +
                        " cells wide, " + where + " it must be " +
                        std::to_string(2 * least_clearance));
    }

    void check_loop() {
        const WidestPath path = widest(false);
        if (!path.found) {
            const PathSearch search = search_paths(
                track_.side, ABOVE_GATE, {}, Moves::KING, [&](int x, int y) -> std::uint32_t {
                    return track_.is_road(x, y) && !gate_.contains(x, y) ? 1 : 0;
                });
            fault(search.farthest(), "the road ends here: from above the start/finish box no road "
                                     "leads back to the start");
            return;
        }
        report_.has_loop = true;
        if (path.squared_clearance < LEAST_CLEARANCE_AT_GATE * LEAST_CLEARANCE_AT_GATE) {
            narrow_fault(path.narrowest, LEAST_CLEARANCE_AT_GATE, "even at the gate");
            return;
        }
        check_width_beyond_gate(path);
        measure_lap();
    }

    void check_width_beyond_gate(const WidestPath& narrowest) {
        const WidestPath beyond = widest(true);
        if (beyond.squared_clearance < LEAST_CLEARANCE * LEAST_CLEARANCE) {
            narrow_fault(beyond.narrowest, LEAST_CLEARANCE, "away from the gate");
            return;
        }
        if (beyond.squared_clearance < PLEASANT_CLEARANCE * PLEASANT_CLEARANCE) {
            report_.warnings.push_back(
                {beyond.narrowest, "the road is only " +
                                       std::to_string(width_at(track_, beyond.narrowest)) +
                                       " cells wide; 80 to 160 are a pleasure to drive"});
        }
        report_.facts.push_back(
            {narrowest.narrowest, "the road is narrowest here: " +
                                      std::to_string(width_at(track_, narrowest.narrowest)) +
                                      " cells"});
        if (beyond.squared_clearance < UINT16_MAX) {
            report_.facts.push_back(
                {beyond.narrowest, "away from the gate it is narrowest here: " +
                                       std::to_string(width_at(track_, beyond.narrowest)) +
                                       " cells"});
        }
    }

    void measure_lap() {
        const PathSearch search = search_paths(
            track_.side, ABOVE_GATE, START, Moves::KING, [&](int x, int y) -> std::uint32_t {
                const bool wide = clearance_[track_.index(x, y)] >=
                                  LEAST_CLEARANCE_AT_GATE * LEAST_CLEARANCE_AT_GATE;
                return wide && !gate_.contains(x, y) ? 1 : 0;
            });
        lap_length_ = static_cast<double>(search.cost_to(START)) / LENGTH_UNITS +
                      (START_CELL_Y - BOX_CENTRE_Y);
    }

    void check_gate() {
        const Rectangle box{BOX_LEFT, BOX_TOP, BOX_RIGHT, BOX_BOTTOM};
        corners_ = corners_on_road(track_);
        const CellMask space = car_space(corners_, track_.side, CAR_CORNERS, box);
        const Way shortest = shortest_way(space, track_.side);
        const auto ways = two_ways(space, track_.side);
        const bool has_lap = ways ? ways->longer_length >= SHORTEST_LAP : lap_length_ == 0;
        if (!shortest.cells.empty() && shortest.length < SHORTEST_LAP && has_lap) {
            const auto beside = std::find_if(shortest.cells.begin(), shortest.cells.end(),
                                             [](Cell cell) { return cell.y >= BOX_CENTRE_Y; });
            // The room for leaps reaches into the box; what the user must see is the road beside
            // it.
            fault({beside->x < BOX_CENTRE_X ? std::min(beside->x, BOX_LEFT - 1)
                                            : std::max(beside->x, BOX_RIGHT + 1),
                   beside->y},
                  "the gate can be missed: a car with all its corners on the road can "
                  "pass the start/finish box here; the road through the box (columns "
                  "2392 to 2407) may be 24 cells wide, columns 2388 to 2411");
        } else if (lap_length_ > 0 && lap_length_ < SHORTEST_LAP) {
            fault(START, "the loop is too short: " + whole(lap_length_) +
                             " cells, and a lap only counts after 300 frames, in which a car "
                             "drives up to " +
                             whole(SHORTEST_LAP));
        } else if (ways) {
            parting_fault(*ways, "the road divides here");
        }
        if (lap_length_ > 0) {
            report_.facts.push_back({START, "a lap is about " + whole(lap_length_) +
                                                " cells long, " + whole(lap_length_ / TOP_SPEED) +
                                                " frames at top speed"});
        }
    }

    void parting_fault(const TwoWays& ways, const char* what) {
        fault(ways.parting, std::string(what) + ": one way back to the start leads by " +
                                place(ways.middle) + " and is " +
                                whole(ways.longer_length - ways.shorter_length) +
                                " cells shorter than the other");
    }

    // On Advanced a car with two corners on the road is never put back.
    void check_shortcuts() {
        const Rectangle gate{gate_.first - BESIDE_GATE, BOX_TOP, gate_.last + BESIDE_GATE,
                             BOX_BOTTOM};
        const std::size_t cells =
            static_cast<std::size_t>(track_.side) * static_cast<std::size_t>(track_.side);
        CellMask road_only(cells);
        std::transform(track_.cells, track_.cells + cells, road_only.begin(),
                       [](std::uint8_t cell) { return cell == CELL_GRASS ? cell : CELL_ROAD; });
        const Regions roads(road_only, track_.side, false, true);
        roads.keep_only(roads.at(START), road_only, CELL_GRASS);
        const CellMask road = car_space(corners_on_road({road_only.data(), track_.side}),
                                        track_.side, CORNERS_THAT_SUFFICE, gate);
        if (const auto ways = two_ways(road, track_.side)) {
            parting_fault(*ways, "a shortcut with only two corners on the road begins here");
            return;
        }
        road_only = {};
        const CellMask all = car_space(corners_, track_.side, CORNERS_THAT_SUFFICE, gate);
        const Way way_on_all = shortest_way(all, track_.side);
        const double saving = shortest_way(road, track_.side).length - way_on_all.length;
        if (saving < LARGEST_SAVING) {
            return;
        }
        const auto leaves =
            std::find_if(way_on_all.cells.begin(), way_on_all.cells.end(),
                         [&](Cell cell) { return road[track_.index(cell.x, cell.y)] == 0; });
        fault(*leaves, way_on_all.length < SHORTEST_LAP
                           ? "decoration leads past the gate: from here a car can pass the "
                             "start/finish box with two corners on it"
                           : "decoration shortens a lap by " + whole(saving) +
                                 " cells: from here a car can cross the grass with two corners "
                                 "on it");
    }

    TrackView track_;
    GateRow gate_;
    std::vector<std::uint16_t> clearance_;
    CellMask corners_;
    double lap_length_ = 0; // 0 while no lap is known
    TrackReport report_;
};

} // namespace

TrackReport check_track(TrackView track, const Units&) {
    return Check(track).run();
}

} // namespace tarvik
