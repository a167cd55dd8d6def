// The demo's command line.
#pragma once

#include "tools/demo/driver.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tarvik::demo {

struct Options {
    bool headless = false;
    int race = 1;            ///< 1 or 2
    int difficulty = 3;      ///< 1 to 3
    std::optional<int> laps; ///< how many to drive; without it a window drives on for ever
    std::optional<std::uint32_t> seed; ///< without it every start is different
    Style style = Style::BEST;
    bool report = false;
    std::filesystem::path from;     ///< folder that data/ is in, empty for the program's own
    std::filesystem::path pictures; ///< folder for pictures, empty for none
    int every = 0; ///< a picture of every so many frames of the last lap, 0 for the chosen ones
};

/// What the command line asks for, or the exit code when there is nothing to drive: --help was
/// answered, or the fault was printed in one line.
struct ParsedOptions {
    std::optional<Options> options;
    int exit_code = 0;
};
ParsedOptions parse_options(int argc, char** argv);

} // namespace tarvik::demo
