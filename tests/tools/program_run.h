// Runs the real tarvik-data.
#pragma once

#include "tests/tools/temporary_folder.h"

#include <string>

namespace tarvik {

struct ProgramRun {
    int exit_code = -1; ///< -1 when a signal ended it
    std::string out;
    std::string error;
};

/// Runs it in the folder with these arguments, as the shell splits them; `before` is put in front
/// of the command line, as in "ulimit -f 8;".
ProgramRun run_tarvik_data(const TemporaryFolder& folder, const std::string& arguments,
                           const std::string& before = "");

} // namespace tarvik
