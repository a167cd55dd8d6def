// tarvik-demo: drives without a display, or hands over to the program with the window.
#include "tools/demo/data_folder.h"
#include "tools/demo/drive.h"
#include "tools/demo/options.h"
#include "tools/demo/snapshots.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <system_error>
#include <unistd.h>

namespace tarvik::demo {

namespace {

/// The window comes with another platform layer, which is chosen when a program is linked.
int open_window(char** argv) {
    const std::string program = (program_folder() / "tarvik-demo-window").string();
    execv(program.c_str(), argv);
    std::cerr << "tarvik-demo: cannot start " << program << ": " << std::strerror(errno) << "\n";
    return EXIT_FAILURE;
}

int run(int argc, char** argv) {
    const ParsedOptions parsed = parse_options(argc, argv);
    if (!parsed.options) {
        return parsed.exit_code;
    }
    if (!parsed.options->headless) {
        return open_window(argv);
    }
    Options options = *parsed.options;
    if (!options.pictures.empty()) {
        options.pictures = std::filesystem::absolute(options.pictures);
        std::error_code error;
        std::filesystem::create_directories(options.pictures, error);
        if (error) {
            std::cerr << "tarvik-demo: cannot make the folder " << options.pictures.string() << ": "
                      << error.message() << "\n";
            return EXIT_FAILURE;
        }
        take_snapshots(options);
    }
    const std::string fault = enter_data_folder(options.from, options.race);
    if (!fault.empty()) {
        std::cerr << "tarvik-demo: " << fault << "\n";
        return EXIT_FAILURE;
    }
    const int exit_code = drive(options);
    if (!options.pictures.empty()) {
        finish_snapshots();
    }
    return exit_code;
}

} // namespace

} // namespace tarvik::demo

int main(int argc, char** argv) {
    try {
        return tarvik::demo::run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "tarvik-demo: " << error.what() << "\n";
        return EXIT_FAILURE;
    }
}
