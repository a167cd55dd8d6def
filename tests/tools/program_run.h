// Runs the real tools, which are beside the program of the tests.
#pragma once

#include "tests/support/temporary_folder.h"

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace tarvik {

/// For a shell: these commands in the folder, where the tools are found by their names.
inline std::string in_folder(const TemporaryFolder& folder, const std::string& commands) {
    const std::filesystem::path tests = std::filesystem::read_symlink("/proc/self/exe");
    return "PATH='" + tests.parent_path().string() + "':$PATH; cd '" + (folder / "").string() +
           "'; " + commands;
}

struct ProgramRun {
    int exit_code = -1;
    std::string text; ///< what was printed, errors included
};

inline ProgramRun run_in(const TemporaryFolder& folder, const std::string& commands) {
    std::FILE* output = popen(in_folder(folder, "exec 2>&1; " + commands).c_str(), "r");
    ProgramRun run;
    for (int byte = std::fgetc(output); byte != EOF; byte = std::fgetc(output)) {
        run.text += static_cast<char>(byte);
    }
    const int status = pclose(output);
    run.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return run;
}

} // namespace tarvik
