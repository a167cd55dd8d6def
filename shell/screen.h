// The sizes of the view and of the window that shows it.
//
// Logical pixels are those of the view, device pixels those of the window: a logical pixel takes
// two by two of them. Both count from the top-left corner, y growing downwards.
#pragma once

#include <cstdint>

namespace tarvik {

inline constexpr std::int32_t LOGICAL_WIDTH = 320;
inline constexpr std::int32_t LOGICAL_HEIGHT = 240;

inline constexpr std::int32_t DEVICE_WIDTH = 2 * LOGICAL_WIDTH;
inline constexpr std::int32_t DEVICE_HEIGHT = 2 * LOGICAL_HEIGHT;

/// Device pixels of the window and of the frame buffer; DEVICE_WIDTH and DEVICE_HEIGHT, which
/// creating the window sets them to.
extern std::int32_t screen_width;
extern std::int32_t screen_height;

} // namespace tarvik
