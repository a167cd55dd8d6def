// Start of the program where the system itself knows no WinMain.
#include "platform/desktop/display.h"
#include "platform/win32.h"

int main() {
    tarvik::open_display_or_exit();
    char no_command_line[] = "";
    const int exit_code = WinMain(GetModuleHandleA(nullptr), nullptr, no_command_line, SW_SHOW);
    tarvik::close_display();
    return exit_code;
}
