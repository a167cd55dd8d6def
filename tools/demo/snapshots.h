// Pictures of a headless drive, chosen while it runs.
#pragma once

#include "tools/demo/options.h"

namespace tarvik::demo {

/// From now on looks at every picture that the game shows and keeps the ones that the options ask
/// for: tight bends with their signs, the gate, and the five ghosts together, or every so many
/// frames of the last lap.
void take_snapshots(const Options& options);

/// Writes what was kept until the end of the drive, and says where the pictures are.
void finish_snapshots();

} // namespace tarvik::demo
