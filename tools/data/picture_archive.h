// The graphics archive: numbered pictures packed into one file.
#pragma once

#include <filesystem>

namespace tarvik {

inline constexpr int PICTURE_COUNT = 1400;
inline constexpr int LARGEST_PICTURE = 1024; ///< pixels to a side; the game's view has 320 by 240

/// Packs the PNG files of a folder whose names begin with a sprite number. Throws a Failure.
void pack_pictures(const std::filesystem::path& folder, const std::filesystem::path& archive);

} // namespace tarvik
