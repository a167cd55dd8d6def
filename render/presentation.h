// Both ends of a frame: a black frame buffer to draw on, and showing what was drawn.
#pragma once

namespace tarvik {

/// Clears the window's back buffer and sets the whole frame buffer to black.
void clear_frame();

/// Hands the frame buffer to OpenGL unchanged and swaps the window's buffers. With OpenGL's
/// defaults it fills the window exactly, so no raster position or zoom is ever set.
void present_frame();

} // namespace tarvik
