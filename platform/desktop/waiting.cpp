// Everything that waits: frame pacing and Sleep.
#include "platform/common/pacing.h"
#include "platform/desktop/presentation.h"
#include "platform/win32.h"

#include <SDL_events.h>

#include <algorithm>
#include <thread>

namespace tarvik {

void wait_for_next_frame() {
    static FrameClock::time_point due{};
    due = next_due(due, FrameClock::now());
    std::this_thread::sleep_until(due);
}

} // namespace tarvik

using namespace tarvik;

// Sleeps through signals: a close request waits for its turn as it would on Windows. Only the
// frame is shown again, as Windows itself would do, when the window is uncovered or resized.
extern "C" void WINAPI Sleep(DWORD milliseconds) {
    const auto end = FrameClock::now() + std::chrono::milliseconds(milliseconds);
    for (auto now = FrameClock::now(); now < end; now = FrameClock::now()) {
        std::this_thread::sleep_for(std::min<FrameClock::duration>(end - now, FRAME_TIME));
        SDL_PumpEvents();
        if (SDL_HasEvent(SDL_WINDOWEVENT) == SDL_TRUE) {
            show_frame_again();
        }
    }
}
