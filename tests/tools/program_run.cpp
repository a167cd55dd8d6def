// Runs the real tarvik-data.
#include "tests/tools/program_run.h"

#include <cstdlib>
#include <sys/wait.h>

namespace tarvik {

ProgramRun run_tarvik_data(const TemporaryFolder& folder, const std::string& arguments,
                           const std::string& before) {
    const TemporaryFolder texts;
    const std::string command = "cd '" + folder.path().string() + "'; exec >'" +
                                (texts / "out").string() + "' 2>'" + (texts / "error").string() +
                                "'; " + before + " '" + TARVIK_DATA_PROGRAM + "' " + arguments;
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(texts / "out"),
            read_file(texts / "error")};
}

} // namespace tarvik
