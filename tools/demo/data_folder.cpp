// Looks before the game does: the game itself reports nothing and leaves empty files behind.
#include "tools/demo/data_folder.h"

#include "race/track_grid.h"

#include <system_error>

namespace tarvik::demo {

namespace fs = std::filesystem;

namespace {

std::string fault_of_map(const fs::path& map) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(map, error);
    if (error) {
        return "the track map " + map.string() + " cannot be read: " + error.message();
    }
    if (size != TRACK_MAP_BYTES) {
        return "the track map " + map.string() + " has " + std::to_string(size) +
               " bytes instead of " + std::to_string(TRACK_MAP_BYTES);
    }
    return {};
}

} // namespace

fs::path program_folder() {
    return fs::read_symlink("/proc/self/exe").parent_path();
}

std::string enter_data_folder(const fs::path& from, int race) {
    const fs::path folder = from.empty() ? program_folder() : fs::absolute(from);
    fs::current_path(folder);
    std::string fault =
        fault_of_map(folder / "data" / "race1.map"); // loaded first, whatever the race
    if (fault.empty() && race != 1) {
        fault = fault_of_map(folder / "data" / ("race" + std::to_string(race) + ".map"));
    }
    if (fault.empty() && !fs::exists(folder / "data" / "graphics.dat")) {
        fault = "the pictures " + (folder / "data" / "graphics.dat").string() + " are missing";
    }
    return fault;
}

} // namespace tarvik::demo
