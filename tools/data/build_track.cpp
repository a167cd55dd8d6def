// From a drawing to a map, and what there is to say about both.
#include "tools/data/build_track.h"

#include "tools/data/track_drawing.h"
#include "tools/files/whole_file.h"
#include "tools/track/map_file.h"

#include <ostream>
#include <string>

namespace tarvik {
namespace {

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
    const DrawnTrack track =
        is_drawing(file) ? draw_track(file) : DrawnTrack{read_map(file), {}, {}};
    for (const std::string& note : track.notes) {
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
