// Where to look.
#include "race/view.h"

#include "race/race_state.h"
#include "race/track_grid.h"
#include "render/frame_buffer.h"

#include <algorithm>

namespace tarvik {

std::int32_t view_x = 0;
std::int32_t view_y = 0;

void follow_car() {
    const auto x = static_cast<std::int32_t>(car_x[PLAYER_SLOT]) - LOGICAL_WIDTH / 2;
    const auto y = static_cast<std::int32_t>(car_y[PLAYER_SLOT]) - LOGICAL_HEIGHT / 2;
    view_x = std::clamp(x, 0, TRACK_WIDTH - LOGICAL_WIDTH);
    view_y = std::clamp(y, 0, TRACK_HEIGHT - LOGICAL_HEIGHT);
}

} // namespace tarvik
