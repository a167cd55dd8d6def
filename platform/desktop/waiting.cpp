// Everything that waits: the pace of the pictures and Sleep.
#include "platform/common/pacing.h"
#include "platform/win32.h"

#include <thread>

namespace tarvik {

void wait_for_next_picture() {
    static PictureClock::time_point due{};
    due = next_due(due, PictureClock::now());
    std::this_thread::sleep_until(due);
}

} // namespace tarvik

// Sleeps through signals: a close request waits for its turn as it would on Windows.
extern "C" void WINAPI Sleep(DWORD milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
