// The outline's offsets and its points in the view.
#include "race/car_outline.h"

#include "race/heading.h"
#include "race/race_state.h"
#include "race/view.h"
#include "render/frame_buffer.h"

namespace tarvik {

float outline_dx[OUTLINE_POINTS];
float outline_dy[OUTLINE_POINTS];

namespace {

/// Nose, front corner, rear corner, front corner, rear corner; degrees from the heading.
constexpr float OUTLINE_ANGLE[OUTLINE_POINTS] = {0.0F, -45.0F, -135.0F, 45.0F, 135.0F};

} // namespace

void compute_outline(float degrees) {
    for (int p = 0; p < OUTLINE_POINTS; ++p) {
        const Step offset = step_along(degrees + OUTLINE_ANGLE[p], OUTLINE_RADIUS);
        outline_dx[p] = offset.x;
        outline_dy[p] = offset.y;
    }
}

void draw_outline_point(float x, float y, int p, int slot) {
    const float point_x = x + outline_dx[p];
    const float point_y = y + outline_dy[p];
    const Colour& colour = car_colour[slot];
    plot(static_cast<std::int32_t>(point_x - static_cast<float>(view_x)),
         static_cast<std::int32_t>(point_y - static_cast<float>(view_y)), colour.red, colour.green,
         colour.blue);
}

} // namespace tarvik
