// Track map files: nothing but the cells.
#include "tools/track/map_file.h"

#include "tools/files/failure.h"
#include "tools/files/whole_file.h"
#include "tools/track/track.h"

namespace tarvik {

std::vector<std::uint8_t> read_map(const std::filesystem::path& path) {
    const OpenFile file = open_file(path);
    std::vector<std::uint8_t> cells(MAP_BYTES + 1); // to see whether there are more
    cells.resize(std::fread(cells.data(), 1, cells.size(), file.get()));
    if (cells.size() != MAP_BYTES) {
        throw Failure(path.string() + " is not a track map: it has " +
                      (cells.size() > MAP_BYTES ? "more" : std::to_string(cells.size())) +
                      " bytes, a map has " + std::to_string(MAP_BYTES));
    }
    return cells;
}

} // namespace tarvik
