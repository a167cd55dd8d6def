// From a drawing to a map, and what there is to say about both. Drawn in bands: the whole page at
// four bytes a pixel would take 400 MB.
#include "tools/data/build_track.h"

#include "tools/data/page.h"
#include "tools/files/whole_file.h"
#include "tools/track/map_file.h"
#include "tools/track/track.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace tarvik {
namespace {

struct DrawnTrack {
    std::vector<std::uint8_t> cells; ///< MAP_BYTES of them
    Units units;
    GrassColours colours;
};

constexpr int BAND_ROWS = 250; // 10 MB of pixels
static_assert(MAP_SIDE % BAND_ROWS == 0);

constexpr int ROAD_WIDTH = 120; // the one that docs/tracks.md speaks of

std::string scale_note(const Units& units) {
    char text[160];
    std::snprintf(text, sizeof text,
                  "the page has %.6g by %.6g %s, %.4g cells a %.*s: a road of %d cells is a line "
                  "of %s",
                  MAP_SIDE / units.cells_a_unit, MAP_SIDE / units.cells_a_unit, units.name.c_str(),
                  units.cells_a_unit, static_cast<int>(units.name.size() - 1), units.name.c_str(),
                  ROAD_WIDTH, units.length(ROAD_WIDTH).c_str());
    return text;
}

/// About the drawing, each a line that says what to do.
std::vector<std::string> notes_on(const DrawnTrack& track) {
    std::vector<std::string> notes;
    if (track.units.cells_a_unit != 1) {
        notes.push_back(scale_note(track.units));
    }
    for (const std::string& colour : track.colours.surprising()) {
        notes.push_back(colour + " counts as grass: lines drawn in it are no road; draw roads in "
                                 "#3c3c3c");
    }
    if (std::memchr(track.cells.data(), CELL_ROAD, track.cells.size()) == nullptr) {
        notes.emplace_back("there is no road: draw one in #3c3c3c, as a line without a fill (a "
                           "picture that the drawing only links to is left out)");
    }
    return notes;
}

DrawnTrack draw_track(const std::filesystem::path& drawing) {
    const std::unique_ptr<Page> page =
        ending(drawing) == ".png" ? open_png(drawing) : open_svg(drawing, BAND_ROWS);
    DrawnTrack track{std::vector<std::uint8_t>(MAP_BYTES), page->units, {}};
    for (int row = 0; row < MAP_SIDE; row += BAND_ROWS) {
        page->draw(row, {&track.cells[static_cast<std::size_t>(row) * MAP_SIDE],
                         static_cast<std::size_t>(BAND_ROWS) * MAP_SIDE});
    }
    track.colours = page->colours;
    return track;
}

void print(std::ostream& out, const Units& units, const char* kind,
           const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        out << kind << " at " << units.place(finding.cell.x, finding.cell.y) << ": " << finding.text
            << '\n';
    }
}

const char* verdict(const TrackReport& report) {
    if (report.can_be_raced()) {
        return " can be raced\n";
    }
    return report.has_loop ? " cannot be raced fairly, but it can be driven\n"
                           : " cannot be raced\n";
}

} // namespace

void build_track(const std::filesystem::path& drawing, const std::filesystem::path& map) {
    write_whole_file(map, draw_track(drawing).cells);
}

TrackReport check_track_file(const std::filesystem::path& file, std::ostream& out) {
    const bool is_drawing = std::set<std::string>{".svg", ".svgz", ".png"}.contains(ending(file));
    const DrawnTrack track = is_drawing ? draw_track(file) : DrawnTrack{read_map(file), {}, {}};
    for (const std::string& note : is_drawing ? notes_on(track) : std::vector<std::string>()) {
        out << "note: " << note << '\n';
    }
    TrackReport report = check_track({track.cells.data(), MAP_SIDE}, track.units);
    print(out, track.units, "fault", report.faults);
    print(out, track.units, "warning", report.warnings);
    print(out, track.units, "note", report.facts);
    out << file.string() << verdict(report);
    return report;
}

} // namespace tarvik
