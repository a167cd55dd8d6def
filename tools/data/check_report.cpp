// What the check of a track found, in words.
#include "tools/data/check_report.h"

#include "tools/track/map_file.h"
#include "tools/track/track_check.h"

#include <ostream>

namespace tarvik {
namespace {

void print(std::ostream& out, const char* kind, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        out << kind << " at (" << finding.cell.x << ", " << finding.cell.y << "): " << finding.text
            << '\n';
    }
}

} // namespace

bool print_track_check(const std::filesystem::path& map, std::ostream& out) {
    const std::vector<std::uint8_t> cells = read_map(map);
    const TrackReport report = check_track({cells.data(), MAP_SIDE});
    print(out, "fault", report.faults);
    print(out, "warning", report.warnings);
    print(out, "note", report.facts);
    out << map.string() << (report.can_be_raced() ? " can be raced\n" : " cannot be raced\n");
    return report.can_be_raced();
}

} // namespace tarvik
