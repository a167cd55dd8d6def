// Track map files: nothing but the cells.
#include "tools/track/map_file.h"

#include "tools/files/failure.h"
#include "tools/files/whole_file.h"
#include "tools/track/track.h"

#include <string>

namespace tarvik {

std::vector<std::uint8_t> read_map(const std::filesystem::path& path) {
    std::error_code unknown_size;
    std::uintmax_t size = std::filesystem::file_size(path, unknown_size);
    std::vector<std::uint8_t> cells;
    if (unknown_size || size == MAP_BYTES) { // a file of another size need not be read
        cells = read_whole_file(path, MAP_BYTES);
        size = cells.size();
    }
    if (size != MAP_BYTES) {
        throw Failure(path.string() + " is not a track map: it has " + std::to_string(size) +
                      " bytes, a map has " + std::to_string(MAP_BYTES));
    }
    return cells;
}

} // namespace tarvik
