// Whether a map can be raced: whether the road, with the box closed, leads once around and is wide
// enough for a car; whether it encloses anything that a car could pass on either side; and whether
// it is still the shortest way when everything grey is widened to where a car can be with two
// corners on it.
#include "tools/track/track_check.h"

#include "tools/track/clearance.h"
#include "tools/track/ways.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace tarvik {
namespace {

// The narrowest road, cells. Near the gate it may be as narrow as the box itself.
constexpr int LEAST_WIDTH_AT_GATE = 16;
constexpr int LEAST_WIDTH = 24;
constexpr int PLEASANT_WIDTH = 80;
constexpr int GATE_ZONE = 600; // cells from the box in which the road may be a funnel

// A car that goes straight up has its corners less than this far to each side and behind.
constexpr int CAR_SIDE = 5;
// The road may be so much wider than the box, on either side, before a car can miss the box.
constexpr int GATE_MARGIN = 4;

// On Advanced a car with two corners on the road is never put back: half a car's width off the
// road, and half a frame's drive more since it is only tested where it is at the end of a frame.
constexpr int REACH = 6;

// Ways around grass that differ by less, a second at top speed, are two lines to choose from.
constexpr double ANOTHER_LINE = 200;

constexpr int SCENERY_DISTANCE = 14; // cells of grass between the road and all else
constexpr double DEAD_END = 80;      // cells; what sticks out less is only a wide place

struct Rectangle { // all edges included
    int left;
    int top;
    int right;
    int bottom;
};
// The box and the widest road through it.
constexpr Rectangle BOX = {BOX_LEFT, BOX_TOP, BOX_RIGHT, BOX_BOTTOM};
constexpr Rectangle GATE = {BOX.left - GATE_MARGIN, BOX.top, BOX.right + GATE_MARGIN, BOX.bottom};
// What is closed for a car that need not stay on the road: no more than its own road lets it reach.
constexpr Rectangle GATE_AND_REACH = {GATE.left - REACH - 2, GATE.top, GATE.right + REACH + 2,
                                      GATE.bottom};

class Check {
  public:
    Check(TrackView track, const Units& units) : track_(track), units_(units) {}

    TrackReport run() {
        const Clearance clearance = squared_clearance(track_);
        if (const auto cell = filled_area(track_, clearance)) {
            warning(*cell, "all is road here, " + length(FILLED_WIDTH) +
                               " and more across: no fill wanted, if this is the inside of a loop");
        }
        check_start();
        if (report_.can_be_raced()) {
            const Round round = once_around(track_, clearance);
            report_.has_loop = round.is_closed;
            if (!round.is_closed) {
                fault(round.end, "the road ends here: from above the start/finish box no road "
                                 "leads back to the start; join it to the next stretch");
            }
            const Cells course = check_ways(clearance, round.is_closed);
            if (report_.can_be_raced()) {
                check_width(clearance, round.way);
                check_shortcuts(clearance, course);
            }
            if (report_.can_be_raced()) {
                look_beside_road(clearance, round.way, course);
            }
        }
        return std::move(report_);
    }

  private:
    [[nodiscard]] std::string length(double cells) const {
        return units_.length(std::round(cells));
    }
    [[nodiscard]] std::string corners(Rectangle area) const {
        return units_.place(area.left, area.top) + " to " +
               units_.place(area.right + 1, area.bottom + 1);
    }
    void fault(Cell cell, const std::string& text) {
        report_.faults.push_back({cell, text});
    }
    void warning(Cell cell, const std::string& text) {
        report_.warnings.push_back({cell, text});
    }
    void note(Cell cell, const std::string& text) {
        report_.facts.push_back({cell, text});
    }

    bool wants_road(Rectangle area, const std::string& text) {
        for (int y = area.top; y <= area.bottom; ++y) {
            for (int x = area.left; x <= area.right; ++x) {
                if (!track_.is_road(x, y)) {
                    fault({x, y}, text);
                    return false;
                }
            }
        }
        return true;
    }

    void check_start() {
        const std::string cure = ": show the layer Gate of docs/empty-track.svg, above all others";
        wants_road(BOX, "the start/finish box, " + corners(BOX) + ", is not all road" + cure);
        const Rectangle car{START.x - CAR_SIDE, START.y - CAR_SIDE, START.x + CAR_SIDE - 1,
                            START.y + CAR_SIDE - 1};
        const Rectangle lane{car.left, BOX.bottom + 1, car.right, car.top - 1};
        if (wants_road(car, "the car does not start on the road: its start at " +
                                units_.place(START.x, START.y) + " needs road from " +
                                corners(car) + cure)) {
            wants_road(lane,
                       "the way straight up from the start to the box is not all road" + cure);
        }
    }

    bool is_wide_enough(Width width, int least, const char* where) {
        if (width.cells < least) {
            fault(width.cell, "the road is too narrow: " + length(width.cells) + " wide, " + where +
                                  " it must be " + length(least));
        }
        return width.cells >= least;
    }

    void check_width(const Clearance& clearance, const std::vector<Cell>& lap) {
        const Width anywhere = narrowest(track_, clearance, lap, 0);
        const Width beyond = narrowest(track_, clearance, lap, GATE_ZONE);
        if (!is_wide_enough(anywhere, LEAST_WIDTH_AT_GATE, "even at the gate") ||
            !is_wide_enough(beyond, LEAST_WIDTH, "away from the gate")) {
            return;
        }
        if (beyond.cells < PLEASANT_WIDTH) {
            warning(beyond.cell, "the road is only " + length(beyond.cells) + " wide; " +
                                     length(PLEASANT_WIDTH) + " to " + length(2 * PLEASANT_WIDTH) +
                                     " are a pleasure to drive");
        }
        note(anywhere.cell, "the road is narrowest here: " + length(anywhere.cells));
        if (beyond.cells < 2 * LARGEST_CLEARANCE) {
            note(beyond.cell, "away from the gate it is narrowest here: " + length(beyond.cells));
        }
        note(START, "a lap is about " + length(length_of(lap)) + " long, " +
                        std::to_string(std::lround(length_of(lap) / TOP_SPEED)) +
                        " frames at top speed");
    }

    void fill(Cells& road, Rectangle area, std::uint8_t cell) const {
        for (int y = area.top; y <= area.bottom; ++y) {
            const auto row = road.begin() + static_cast<std::ptrdiff_t>(track_.index(0, y));
            std::fill(row + area.left, row + area.right + 1, cell);
        }
    }

    void gate_fault(const std::vector<Cell>& way) {
        const auto beside = std::ranges::find_if(way, [](Cell c) { return c.y >= BOX_CENTRE_Y; });
        fault(*beside, "the gate can be missed: a car can pass the start/finish box here; the road "
                       "through the box may reach from x " +
                           units_.across(GATE.left) + " to " + units_.across(GATE.right + 1) +
                           ", and no other road may lead past it");
    }

    // Whether a lap has only one way on this road, on which these cells can be reached.
    bool has_one_way(TrackView road, const Clearance& clearance, const std::vector<Cell>& cells,
                     const char* what) {
        for (const TwoWays& ways : second_ways(road, clearance, cells)) {
            if (ways.shorter_length < SHORTEST_LAP) {
                if (ways.longer_length >= SHORTEST_LAP) {
                    gate_fault(ways.shorter);
                    return false;
                }
            } else if (!ways.apart.empty()) {
                const double saving = ways.longer_length - ways.shorter_length;
                if (saving >= ANOTHER_LINE) {
                    const Cell middle = ways.apart[ways.apart.size() / 2];
                    fault(ways.apart.front(),
                          what + (": one way back to the start leads by " +
                                  units_.place(middle.x, middle.y) + " and is " + length(saving) +
                                  " shorter than the other"));
                    return false;
                }
                note(ways.apart.front(), "the road divides here; both ways are about as long");
            }
        }
        return true;
    }

    // Returns the track without what a car cannot reach on the road.
    Cells check_ways(const Clearance& clearance, bool is_closed) {
        Cells road(track_.cells, track_.cells + track_.index(0, track_.side));
        fill(road, GATE, CELL_GRASS);
        const TrackView view{road.data(), track_.side};
        const Search search = shortest_ways(view);
        const bool has_lap = search.key(START).has_value();
        const double lap = has_lap ? length_of(search.way_to(START)) : SHORTEST_LAP;
        if (has_one_way(view, clearance, search.reached(), "the road divides here") &&
            lap < SHORTEST_LAP) {
            if (!is_closed) {
                gate_fault(search.way_to(START));
            } else {
                fault(START, "the loop is too short: " + length(lap) +
                                 ", and a lap only counts after " + std::to_string(MIN_LAP_FRAMES) +
                                 " frames, in which a car drives up to " + length(SHORTEST_LAP));
            }
        }
        std::ranges::fill(road, CELL_GRASS);
        for (const Cell cell : search.reached()) {
            road[track_.index(cell.x, cell.y)] = CELL_ROAD;
        }
        for (int y = GATE.top; y <= GATE.bottom; ++y) {
            const std::size_t row = track_.index(GATE.left, y);
            std::copy_n(track_.cells + row, GATE.right - GATE.left + 1, &road[row]);
        }
        return road;
    }

    void check_shortcuts(const Clearance& clearance, const Cells& course) {
        Cells near = grown({course.data(), track_.side}, REACH);
        fill(near, GATE_AND_REACH, CELL_GRASS);
        const TrackView on_course{near.data(), track_.side};
        const Search lap = shortest_ways(on_course);
        if (!has_one_way(on_course, clearance, lap.reached(),
                         "a shortcut with only two corners on the road begins here")) {
            return;
        }
        Cells all = grown(track_, REACH);
        fill(all, GATE_AND_REACH, CELL_GRASS);
        const Search shortest = shortest_ways({all.data(), track_.side});
        if (!lap.key(START) || !shortest.key(START)) {
            return;
        }
        const std::vector<Cell> way = shortest.way_to(START);
        const double saving = length_of(lap.way_to(START)) - length_of(way);
        if (saving < LARGEST_SAVING) {
            return;
        }
        const auto leaves =
            std::ranges::find_if(way, [&](Cell c) { return !on_course.is_road(c.x, c.y); });
        fault(*leaves, length_of(way) < SHORTEST_LAP
                           ? "decoration leads past the gate: from here a car can pass the "
                             "start/finish box with two corners on it"
                           : "decoration shortens a lap by " + length(saving) +
                                 ": from here a car can cross the grass with two corners on it");
    }

    void look_beside_road(const Clearance& clearance, const std::vector<Cell>& lap,
                          const Cells& course) {
        const TrackView road{course.data(), track_.side};
        std::vector<KeyedCell> middle; // the keys fall as the road grows wider
        for (const Cell cell : lap) {
            const double half_width = std::sqrt(clearance[track_.index(cell.x, cell.y)]);
            middle.push_back({cell, static_cast<std::uint32_t>(2 * LENGTH_UNITS *
                                                               (LARGEST_CLEARANCE - half_width))});
        }
        const Search beside(track_.side, middle,
                            [&](std::uint32_t from, Cell to, std::uint32_t steps) {
                                return road.is_road(to.x, to.y) ? from + steps : NO_WAY;
                            });
        const Cell end = beside.reached().back();
        const double sticks_out = *beside.key(end) * 1.0 / LENGTH_UNITS - 2 * LARGEST_CLEARANCE;
        if (sticks_out > DEAD_END) {
            note(end, "a dead end beside the road, or a way that may be left out, about " +
                          length(sticks_out) + " long");
        }
        const Cells near = grown(road, SCENERY_DISTANCE);
        for (std::size_t i = 0; i < near.size(); ++i) {
            if (near[i] == CELL_ROAD && course[i] == CELL_GRASS && track_.cells[i] != CELL_GRASS) {
                warning(track_.cell_at(static_cast<std::ptrdiff_t>(i)),
                        "decoration is close to the road here: leave " + length(SCENERY_DISTANCE) +
                            " of grass between them");
                break;
            }
        }
    }

    TrackView track_;
    const Units& units_;
    TrackReport report_;
};

} // namespace

TrackReport check_track(TrackView track, const Units& units) {
    return Check(track, units).run();
}

} // namespace tarvik
