// The game loads track 1 first, whatever the track to drive on.
#include "tools/demo/data_folder.h"

#include "race/track_grid.h"

#include <stdexcept>
#include <string>
#include <system_error>

namespace tarvik::demo {

namespace fs = std::filesystem;

namespace {

void check_map(const fs::path& map) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(map, error);
    if (error) {
        throw std::runtime_error("the track map " + map.string() +
                                 " cannot be read: " + error.message());
    }
    if (size != TRACK_MAP_BYTES) {
        throw std::runtime_error("the track map " + map.string() + " has " + std::to_string(size) +
                                 " bytes instead of " + std::to_string(TRACK_MAP_BYTES));
    }
}

} // namespace

fs::path program() {
    return fs::read_symlink("/proc/self/exe");
}

void enter_data_folder(const fs::path& from, int race) {
    const fs::path folder = from.empty() ? program().parent_path() : fs::absolute(from);
    const fs::path data = folder / "data";
    fs::current_path(folder);
    check_map(data / "race1.map");
    check_map(data / ("race" + std::to_string(race) + ".map"));
    if (!fs::exists(data / "graphics.dat")) {
        throw std::runtime_error("the pictures " + (data / "graphics.dat").string() +
                                 " are missing");
    }
}

} // namespace tarvik::demo
