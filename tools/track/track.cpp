// The track grid as the tools see it.
#include "tools/track/track.h"

namespace tarvik {

GateRow gate_row(TrackView track) {
    GateRow gate{BOX_CENTRE_X, BOX_CENTRE_X - 1};
    while (track.is_road(gate.last + 1, BOX_CENTRE_Y)) {
        ++gate.last;
    }
    while (gate.last >= gate.first && track.is_road(gate.first - 1, BOX_CENTRE_Y)) {
        --gate.first;
    }
    return gate;
}

} // namespace tarvik
