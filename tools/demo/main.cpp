// The command line, and what went wrong in one line.
#include "tools/demo/options.h"
#include "tools/demo/play.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    try {
        const auto [options, exit_code] = tarvik::demo::parse_options(argc, argv);
        return options ? tarvik::demo::play(*options, argv) : exit_code;
    } catch (const std::exception& error) {
        std::cerr << "tarvik-demo: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
