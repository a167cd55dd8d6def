// tarvik-demo-window: the drive in a window.
#include "platform/desktop/display.h"
#include "tools/demo/data_folder.h"
#include "tools/demo/drive.h"
#include "tools/demo/play.h"

namespace tarvik::demo {

int play(const Options& options, char** /*argv*/) {
    enter_data_folder(options.from, options.race);
    open_display_or_exit();
    const int exit_code = drive(options);
    close_display();
    return exit_code;
}

} // namespace tarvik::demo
