// Pictures of a headless drive, chosen while it runs.
#pragma once

#include <filesystem>

namespace tarvik::demo {

/// From now on looks at every picture that the game shows and keeps the chosen ones for `folder`:
/// tight bends with their signs, the gate, and the five ghosts together.
void take_snapshots(const std::filesystem::path& folder);

/// Writes what was kept until the end of the drive, and says where the pictures are.
void finish_snapshots();

} // namespace tarvik::demo
