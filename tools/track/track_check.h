// Whether a map can be raced.
#pragma once

#include "tools/track/track.h"
#include "tools/track/units.h"

#include <string>
#include <vector>

namespace tarvik {

/// Something about the track and the cell to look at.
struct Finding {
    Cell cell;
    std::string text;
};

struct TrackReport {
    std::vector<Finding> faults;   ///< reasons why the map cannot be raced, or not fairly
    std::vector<Finding> warnings; ///< what makes it less of a pleasure
    std::vector<Finding> facts;    ///< what is worth knowing about a track without faults
    bool has_loop = false;         ///< it can be driven round, whatever the faults

    [[nodiscard]] bool can_be_raced() const {
        return faults.empty();
    }
};

/// Looks at the start, the start/finish box, the loop and its width, the gate, shortcuts and what
/// is beside the road. Later checks are skipped where an earlier fault makes them meaningless. The
/// texts give lengths and places in `units`; the cells of findings stay cells.
TrackReport check_track(TrackView track, const Units& units = {});

} // namespace tarvik
