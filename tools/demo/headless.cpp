// tarvik-demo: drives without a display, or hands over to the program with the window.
#include "tools/demo/data_folder.h"
#include "tools/demo/drive.h"
#include "tools/demo/play.h"
#include "tools/demo/snapshots.h"

#include <cerrno>
#include <system_error>
#include <unistd.h>

namespace tarvik::demo {

int play(const Options& options, char** argv) {
    if (!options.headless) {
        const std::string window = program().string() + "-window";
        execv(window.c_str(), argv);
        throw std::system_error(errno, std::generic_category(), "cannot start " + window);
    }
    const bool takes_pictures = !options.pictures.empty();
    if (takes_pictures) {
        take_snapshots(options); // in a folder that is named from here
    }
    enter_data_folder(options.from, options.race);
    const int exit_code = drive(options);
    if (takes_pictures) {
        finish_snapshots();
    }
    return exit_code;
}

} // namespace tarvik::demo
