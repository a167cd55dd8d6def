// tarvik-demo-window: the drive in a window.
#include "platform/desktop/display.h"
#include "tools/demo/data_folder.h"
#include "tools/demo/drive.h"
#include "tools/demo/options.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    using namespace tarvik::demo;
    try {
        const ParsedOptions parsed = parse_options(argc, argv);
        if (!parsed.options) {
            return parsed.exit_code;
        }
        const std::string fault = enter_data_folder(parsed.options->from, parsed.options->race);
        if (!fault.empty()) {
            std::cerr << "tarvik-demo: " << fault << "\n";
            return EXIT_FAILURE;
        }
        tarvik::open_display_or_exit();
        const int exit_code = drive(*parsed.options);
        tarvik::close_display();
        return exit_code;
    } catch (const std::exception& error) {
        std::cerr << "tarvik-demo: " << error.what() << "\n";
        return EXIT_FAILURE;
    }
}
