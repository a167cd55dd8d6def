// Everything that waits: frame pacing and Sleep.
#include "platform/common/pacing.h"
#include "platform/desktop/picture.h"
#include "platform/win32.h"

#include <SDL_events.h>

#include <algorithm>
#include <thread>

namespace tarvik {

void wait_for_next_picture() {
    static PictureClock::time_point due{};
    due = next_due(due, PictureClock::now());
    std::this_thread::sleep_until(due);
}

} // namespace tarvik

using namespace tarvik;

// Sleeps through signals: a close request waits for its turn as it would on Windows. Only the
// picture is redrawn, as Windows itself would do, when the window is uncovered or resized.
extern "C" void WINAPI Sleep(DWORD milliseconds) {
    const auto end = PictureClock::now() + std::chrono::milliseconds(milliseconds);
    for (auto now = PictureClock::now(); now < end; now = PictureClock::now()) {
        std::this_thread::sleep_for(std::min<PictureClock::duration>(end - now, PICTURE_TIME));
        SDL_PumpEvents();
        if (SDL_HasEvent(SDL_WINDOWEVENT) == SDL_TRUE) {
            show_picture_again();
        }
    }
}
