// Runs the real tarvik-data.
#pragma once

#include "tests/tools/temporary_folder.h"

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace tarvik {

/// It is beside the program of the tests.
inline std::string tarvik_data_program() {
    return std::filesystem::read_symlink("/proc/self/exe").replace_filename("tarvik-data").string();
}

struct ProgramRun {
    int exit_code = -1; ///< -1 when a signal ended it
    std::string text;   ///< what it printed, errors included
};

/// Runs it in the folder with these arguments, as the shell splits them; `before` is put in front
/// of the command line, as in "ulimit -f 8;".
inline ProgramRun run_tarvik_data(const TemporaryFolder& folder, const std::string& arguments,
                                  const std::string& before = "") {
    const std::string command = "exec 2>&1; cd '" + (folder / "").string() + "'; " + before + " '" +
                                tarvik_data_program() + "' " + arguments;
    std::FILE* output = popen(command.c_str(), "r");
    ProgramRun run;
    for (int byte = std::fgetc(output); byte != EOF; byte = std::fgetc(output)) {
        run.text += static_cast<char>(byte);
    }
    const int status = pclose(output);
    run.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace tarvik
