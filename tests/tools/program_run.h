// Runs the real tools.
#pragma once

#include "tests/tools/temporary_folder.h"

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace tarvik {

/// They are beside the program of the tests.
inline std::string program_beside(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").replace_filename(name).string();
}
inline std::string tarvik_data_program() {
    return program_beside("tarvik-data");
}

struct ProgramRun {
    int exit_code = -1; ///< -1 when a signal ended it
    std::string text;   ///< what it printed, errors included
};

/// Runs a program in the folder with these arguments, as the shell splits them; `before` is put in
/// front of the command line, as in "ulimit -f 8;".
inline ProgramRun run_program(const std::string& program, const TemporaryFolder& folder,
                              const std::string& arguments, const std::string& before = "") {
    const std::string command = "exec 2>&1; cd '" + (folder / "").string() + "'; " + before + " '" +
                                program + "' " + arguments;
    std::FILE* output = popen(command.c_str(), "r");
    ProgramRun run;
    for (int byte = std::fgetc(output); byte != EOF; byte = std::fgetc(output)) {
        run.text += static_cast<char>(byte);
    }
    const int status = pclose(output);
    run.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

inline ProgramRun run_tarvik_data(const TemporaryFolder& folder, const std::string& arguments,
                                  const std::string& before = "") {
    return run_program(tarvik_data_program(), folder, arguments, before);
}

} // namespace tarvik
